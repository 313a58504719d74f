"""examples/farm.py: what a farm draws is what a plain loop draws, whichever worker is lost meanwhile."""

import json
import subprocess
import sys

import pytest
from conftest import SOURCES

pytest.importorskip("distributed")

FARM = SOURCES / "examples/farm.py"
SCENES = SOURCES / "scenes"
COUNT = 300

# In a process of its own: a cluster leaves threads behind.
LOSING = """
import os, signal, sys
import dask
dask.config.set({"distributed.scheduler.allowed-failures": 1})
sys.path.insert(0, sys.argv[1])
import farm
from distributed import Client, LocalCluster

def draw(scenes, job, draw=farm.draw):
    if job["name"] == "2":
        os._exit(1)  # at every try
    return draw(scenes, job)

farm.draw = draw

if __name__ == "__main__":
    jobs = list(farm.example_jobs(sys.argv[2], int(sys.argv[3])))
    with LocalCluster(n_workers=3, threads_per_worker=1, dashboard_address=None) as cluster:
        with Client(cluster) as client:
            before = client.run(os.getpid)
            found, lost = {}, None
            for name, checksum, content in farm.draw_all(client, sys.argv[2], jobs, batch=5, ahead=12):
                found[name] = (checksum, content)
                if lost is None and len(found) >= len(jobs) // 3:
                    lost = sorted(before.values())[0]
                    os.kill(lost, signal.SIGKILL)
            after = set(client.run(os.getpid).values())
            poison = [{"name": str(i), "scene": jobs[0]["scene"], "data": jobs[0]["data"]}
                      for i in range(4)]
            ended = dict(row[:2] for row in farm.draw_all(client, sys.argv[2], poison, batch=1))
    assert [name for name in sorted(ended) if ended[name] is None] == ["2"], ended
    assert lost and lost not in after and len(before) == 3
    scenes = farm.packed(sys.argv[2])
    plain = {job["name"]: farm.draw(scenes, job)[1:] for job in jobs}
    assert found == plain, "other bytes"
    assert None not in {checksum for checksum, content in plain.values()}
    print(len(found), len({checksum for checksum, content in plain.values()}))
"""


def test_a_farm_that_loses_workers_draws_what_a_plain_loop_draws(run, tmp_path):
    program = tmp_path / "losing.py"
    program.write_text(LOSING)
    # A worker that is killed leaves its files.
    told = run("", str(program), str(FARM.parent), str(SCENES), str(COUNT), TMPDIR=str(tmp_path))
    count, different = map(int, told.split())
    assert count == COUNT and different > COUNT // 2


def test_files_and_checksums_come_out_and_failures_are_told(tmp_path):
    scenes = tmp_path / "scenes"
    scenes.mkdir()
    (scenes / "one.json").write_text('{"orvel": 1, "size": [40, 20], "root": {"text": "${t}"}}')
    jobs = [{"name": f"n{i}", "scene": "one.json", "data": {"t": str(i)}} for i in range(5)]
    jobs.append({"name": "bad", "scene": "one.json", "data": {"u": 1}})
    jobs.append({"name": "gone", "scene": "two.json", "data": {}})
    jobs += [{"scene": "one.json", "data": {"t": "8"}}, "no job"]  # without a name
    (tmp_path / "jobs").write_text("".join(json.dumps(job) + "\n" for job in jobs))
    done = subprocess.run([sys.executable, str(FARM), str(tmp_path / "jobs"), "--scenes", str(scenes),
                           "--out", str(tmp_path / "out"), "--workers", "1", "--batch", "2"],
                          capture_output=True, text=True)
    assert done.returncode == 1
    assert "farm: bad: " in done.stderr and "farm: gone: " in done.stderr
    assert "farm: line-9: " in done.stderr and "6 drawn, 3 failed" in done.stderr
    from orvelsdk import Canvas, Screen

    rows = dict(reversed(line.split("  "))
                for line in (tmp_path / "out/checksums").read_text().splitlines())
    assert sorted(rows) == ["line-8"] + [f"n{i}" for i in range(5)]
    for i in range(5):
        expected = Screen.open(scenes / "one.json", {"t": str(i)}).render().checksum()
        assert rows[f"n{i}"] == expected == Canvas.open(tmp_path / f"out/n{i}.png").checksum()


@pytest.mark.parametrize("words", [[], ["jobs", "--example", "5"]])
def test_it_wants_jobs_or_an_example(words, tmp_path):
    done = subprocess.run([sys.executable, str(FARM), *words, "--scenes", ".", "--out", "."],
                          capture_output=True, text=True, cwd=tmp_path)
    assert done.returncode == 2 and "either JOBS or --example N" in done.stderr
