// Starts Chromium with the launcher and with two packages that people use for the same, in turn,
// and prints a line for each: the median time in milliseconds from the call until Chromium answers.
//
// usage: browser_start.mjs ROUNDS LAUNCHER CHROMIUM
//
// The packages are in node_modules beside this file. Each run has a new profile below $TMPDIR.
// Chromium is headless and has the same switches in each run, besides those that the packages add.

import { launch as chromeLauncherLaunch } from "chrome-launcher";
import { spawn } from "node:child_process";
import { mkdtempSync, readFileSync, readlinkSync, rmSync, writeFileSync } from "node:fs";
import { get } from "node:http";
import { createServer } from "node:net";
import { tmpdir } from "node:os";
import { setTimeout as sleep } from "node:timers/promises";
import { chromium as playwrightChromium } from "playwright-core";

const [rounds, launcher, chromium] = process.argv.slice(2);
const secondsToAnswer = 30;
const switches = ["--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync"];
if (process.getuid() === 0) switches.push("--no-sandbox");

function freePort() {
  return new Promise((resolve) => {
    const server = createServer().listen(0, "127.0.0.1", () => {
      const { port } = server.address();
      server.close(() => resolve(port));
    });
  });
}

function answers(port) {
  return new Promise((resolve) => {
    get({ host: "127.0.0.1", port, path: "/json/version", agent: false }, (reply) => {
      reply.resume().on("end", () => resolve(reply.statusCode === 200));
    }).on("error", () => resolve(false));
  });
}

async function until(what, isTrue) {
  const end = performance.now() + 1000 * secondsToAnswer;
  while (!(await isTrue())) {
    if (performance.now() > end) throw new Error(`${what}: not within ${secondsToAnswer} s`);
    await sleep(2);
  }
}

// Chromium names its process in the profile: "HOST-PID".
function processOf(profile) {
  return Number(readlinkSync(`${profile}/SingletonLock`).split("-").at(-1));
}

function isAlive(pid) {
  try {
    // An ended process that nobody has waited for is still in the table.
    return !/^State:\tZ/m.test(readFileSync(`/proc/${pid}/status`, "utf8"));
  } catch {
    return false;
  }
}

// Each starts Chromium on a profile, returns when it answers, and gives the function that ends it.
async function byLauncher(profile, port) {
  spawn(launcher, [`--user-data-dir=${profile}`, "--headless", ...switches],
    { env: { ...process.env, QUILLON_ENGINE_BIN: chromium }, stdio: "ignore" });
  await until("the launcher's Chromium", () => answers(port));
  return async () => {
    const browser = processOf(profile);
    process.kill(-browser, "SIGKILL");
    await until("the end of Chromium", () => !isAlive(browser));
  };
}

async function byChromeLauncher(profile) {
  const browser = await chromeLauncherLaunch({ chromePath: chromium, userDataDir: profile,
    chromeFlags: ["--headless", ...switches], logLevel: "silent" });
  return () => browser.kill();
}

async function byPlaywright(profile) {
  const context = await playwrightChromium.launchPersistentContext(profile,
    { executablePath: chromium, headless: true, args: switches });
  return () => context.close();
}

async function timeOf(start) {
  const port = await freePort();
  const profile = mkdtempSync(`${tmpdir()}/browser-start-`);
  if (start === byLauncher) {
    writeFileSync(`${profile}/command-line.json`,
      JSON.stringify({ "cdp-tcp-port": `${port}`, "start-page": "about:blank" }));
  }
  try {
    const begin = performance.now();
    const end = await start(profile, port);
    const time = performance.now() - begin;
    await end();
    return time;
  } finally {
    // Chromium's other processes may still write while they end.
    rmSync(profile, { recursive: true, force: true, maxRetries: 20, retryDelay: 100 });
  }
}

function median(values) {
  values.sort((a, b) => a - b);
  return (values[(values.length - 1) >> 1] + values[values.length >> 1]) / 2;
}

const starts = [byLauncher, byChromeLauncher, byPlaywright];
const times = new Map(starts.map((start) => [start, []]));
for (let round = 0; round < rounds; ++round) {
  for (const start of starts) times.get(start).push(await timeOf(start));
}
for (const start of starts) console.log(median(times.get(start)));
