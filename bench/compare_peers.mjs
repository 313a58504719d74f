// Compares two folders of PNG files with pixelmatch or odiff, as their documentation shows, in one process:
// node compare_peers.mjs pixelmatch|odiff EXPECTED ACTUAL. For each picture it prints how many pixels
// differ and its name.
import fs from "node:fs";
import path from "node:path";
import {createRequire} from "node:module";

const need = createRequire(path.join(process.cwd(), "node_modules/"));
const [peer, expected, actual] = process.argv.slice(2);
const names = fs.readdirSync(expected).filter(name => name.endsWith(".png")).sort();

async function withPixelmatch() {
  const {PNG} = need("pngjs");
  const pixelmatch = (await import(need.resolve("pixelmatch"))).default;
  for (const name of names) {
    const before = PNG.sync.read(fs.readFileSync(path.join(expected, name)));
    const now = PNG.sync.read(fs.readFileSync(path.join(actual, name)));
    const {width, height} = before;
    console.log(`${pixelmatch(before.data, now.data, undefined, width, height)} ${name}`);
  }
}

async function withOdiff() {
  const {ODiffServer} = need("odiff-bin");
  const server = new ODiffServer();
  // All at once: the server takes them as fast as it can. It insists on a picture of a difference.
  const found = await Promise.all(names.map(
    name => server.compare(path.join(expected, name), path.join(actual, name), "difference.png")));
  found.forEach((result, i) => console.log(`${result.match ? 0 : result.diffCount ?? 1} ${names[i]}`));
  server.stop();
}

await (peer === "odiff" ? withOdiff() : withPixelmatch());
