#!/usr/bin/env python3
"""Draws many dashboards on many machines, by Dask.

    farm.py JOBS --scenes FOLDER --out FOLDER [--workers N | --scheduler ADDRESS]
    farm.py --example 1000 --scenes scenes --out drawn

JOBS has a line of JSON for each dashboard: {"name": "kitchen-17", "scene": "home/dashboard.json",
"data": {...}}. Of each comes NAME.png, and a line "CHECKSUM  NAME" in the file checksums, where the
checksum is that of the pixels: the same on every machine, whichever drew it. A worker that is lost is
made up for; a dashboard that cannot be drawn is reported, and the rest goes on. One without a name is
called after its line: line-17.

The workers need Python with orvelsdk and distributed, and nothing else: scenes travel with the work.
"""
import argparse
import functools
import io
import itertools
import json
import pathlib
import random
import re
import sys
import tempfile
import time
import zipfile

import cloudpickle
from distributed import Client, LocalCluster, as_completed

import orvelsdk


def packed(folder):
    """A folder of scenes as bytes, to go to the workers."""
    archive = io.BytesIO()
    with zipfile.ZipFile(archive, "w") as file:
        for path in sorted(pathlib.Path(folder).rglob("*")):
            if path.is_file():
                file.write(path, path.relative_to(folder))
    return archive.getvalue()


@functools.lru_cache(maxsize=1)
def unpacked(scenes):
    folder = tempfile.TemporaryDirectory()  # for as long as the process, which keeps it
    with zipfile.ZipFile(io.BytesIO(scenes)) as file:
        file.extractall(folder.name)
    return folder


@functools.lru_cache(maxsize=1)
def screens_of(scenes):
    return {}  # those that are open, by their files


def drawn(scenes, scene, data):
    screens = screens_of(scenes)
    if scene in screens:
        return screens[scene].render(data)
    screens[scene] = orvelsdk.Screen.open(pathlib.Path(unpacked(scenes).name) / scene, data)
    return screens[scene].render()


def draw(scenes, job):
    """One dashboard: its name, the checksum of its pixels, its PNG file; or its name, none, why not."""
    try:
        canvas = drawn(scenes, job["scene"], job["data"])
        return job["name"], canvas.checksum(), canvas.png()
    except (orvelsdk.Error, OSError, ValueError, KeyError, TypeError) as reason:
        return job["name"], None, str(reason) or repr(reason)


def draw_batch(scenes, jobs):
    return [draw(scenes, job) for job in jobs]


def batches_of(jobs, size):
    jobs = iter(jobs)
    while batch := list(itertools.islice(jobs, size)):
        yield batch


def draw_all(client, folder, jobs, batch=50, ahead=200):
    """Yields what draw() returns for every job, in the order in which they are done.

    No more than so many batches wait at once, so that a million jobs fit into the memory. What a
    worker held when it was lost is drawn again by another one. What was held by several that were lost
    is drawn in the end, one at a time, since only one of it may have ended them.
    """
    if __name__ != "__main__":
        cloudpickle.register_pickle_by_value(sys.modules[__name__])  # workers do not have this file
    # As a piece of work, not as scattered data: it is made anew when all who held it are lost.
    scenes = client.submit(bytes, packed(folder))
    work = batches_of(jobs, batch)
    held, suspects = {}, []  # the jobs of what runs, and of what was lost with several workers

    def submitted(some):
        return client.submit(draw_batch, scenes, some, pure=False)

    def begin(count):
        for some in itertools.islice(work, count):
            future = submitted(some)
            held[future.key] = some
            yield future

    running = as_completed(begin(ahead), with_results=True, raise_errors=False)
    for future, results in running:
        some = held.pop(future.key)
        if future.status == "finished":
            yield from results
        else:
            suspects += some
        future.release()
        running.update(list(begin(1)))
    for job in suspects:
        future = submitted([job])
        reason = future.exception()
        yield (job["name"], None, repr(reason)) if reason else future.result()[0]


def example_jobs(folder, count):
    """Different dashboards: the scenes' own data, with other numbers."""
    found = [(scene.relative_to(folder), json.loads((scene.parent / "data.json").read_text()))
             for scene in sorted(pathlib.Path(folder).glob("*/*.json")) if scene.name != "data.json"]
    for number in range(count):
        scene, data = found[number % len(found)]
        yield {"name": f"{scene.parent.name}-{scene.stem}-{number:06}", "scene": str(scene),
               "data": varied(data, random.Random(number))}


def varied(value, numbers):
    if isinstance(value, dict):
        return {key: varied(each, numbers) for key, each in value.items()}
    if isinstance(value, list):
        return [varied(each, numbers) for each in value]
    if isinstance(value, float):
        return round(value * numbers.uniform(0.8, 1.0), 2)
    if isinstance(value, str):  # times
        return re.sub(r"(?<=\b\d\d:)\d\d\b", lambda _: f"{numbers.randrange(60):02}", value)
    return value


def jobs_of(path):
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if line.strip():
                job = json.loads(line)
                yield {"name": f"line-{number}", **(job if isinstance(job, dict) else {})}


def progress(done, failed, started, end="\r"):
    seconds = max(time.monotonic() - started, 0.001)
    print(f"{done} drawn, {failed} failed, {done / seconds:.0f} a second", end=end, file=sys.stderr,
          flush=True)


def keep(results, out):
    """Writes the files; returns how many could not be drawn."""
    out.mkdir(parents=True, exist_ok=True)
    done = failed = 0
    started, told, checksums = time.monotonic(), 0.0, []
    for name, checksum, content in results:
        if checksum is None:
            failed += 1
            print(f"farm: {name}: {content}", file=sys.stderr)
            continue
        (out / f"{name}.png").write_bytes(content)
        checksums.append(f"{checksum}  {name}\n")
        done += 1
        if time.monotonic() - told > 0.5:
            told = time.monotonic()
            progress(done, failed, started)
    (out / "checksums").write_text("".join(sorted(checksums, key=lambda line: line.split()[1])))
    progress(done, failed, started, end="\n")
    return failed


def parsed():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("jobs", nargs="?", metavar="JOBS", help="a file with a line for each dashboard")
    parser.add_argument("--example", type=int, metavar="N", help="N variants of the scenes' own data")
    parser.add_argument("--scenes", type=pathlib.Path, required=True, help="the folder of the scenes")
    parser.add_argument("--out", type=pathlib.Path, required=True, help="where the pictures go")
    parser.add_argument("--workers", type=int, help="processes on this machine; else one a processor")
    parser.add_argument("--scheduler", help="a cluster's address, tcp://host:8786 for instance")
    parser.add_argument("--batch", type=int, default=50, help="dashboards in one piece of work")
    given = parser.parse_args()
    if (given.jobs is None) == (given.example is None):
        parser.error("either JOBS or --example N")
    return given


def main():
    given = parsed()
    jobs = jobs_of(given.jobs) if given.jobs else example_jobs(given.scenes, given.example)
    where = given.scheduler or LocalCluster(n_workers=given.workers, threads_per_worker=1,
                                            dashboard_address=None)
    with Client(where) as client:
        failed = keep(draw_all(client, given.scenes, jobs, given.batch), given.out)
    if not given.scheduler:
        where.close()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
