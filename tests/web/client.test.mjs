// corvid-client.js against `corvid serve` on its built-in simulated printer.
// Run: node --experimental-websocket --test tests/web/client.test.mjs
import assert from "node:assert/strict";
import {execFileSync, spawn} from "node:child_process";
import {once} from "node:events";
import fs from "node:fs";
import net from "node:net";
import os from "node:os";
import path from "node:path";
import readline from "node:readline";
import {test} from "node:test";
import {fileURLToPath} from "node:url";

import {CorvidClient, CorvidError} from "../../web/corvid-client.js";

const ROOT = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");
const TOOL = process.env.CORVID_TOOL ?? path.join(ROOT, "build/linux/tools/corvid/corvid");
const SALE = {
  type: "sale",
  document: JSON.parse(fs.readFileSync(path.join(ROOT, "tools/corvid/samples/sale.json"), "utf8")),
};
const TEXT = {type: "nonfiscal", document: {lines: ["Gracias por su compra"]}};

/** `corvid serve` in a folder of its own; start() again keeps the port and the journal. */
class Service {
  constructor() {
    this.folder = fs.mkdtempSync(path.join(os.tmpdir(), "corvid-client-"));
    this.data = path.join(this.folder, "data");
    this.port = 0;
    // Short waits, so that a printer gone silent costs seconds, not minutes.
    fs.writeFileSync(path.join(this.folder, "ORV.ini"), "[Config\\NimbusPF]\nTimeOut=1\nMaxWait=3\n");
  }

  get url() {
    return `http://127.0.0.1:${this.port}`;
  }

  async start() {
    const words = ["serve", "--listen", `127.0.0.1:${this.port}`, "--data", this.data];
    this.process = spawn(TOOL, words, {cwd: this.folder, stdio: ["ignore", "pipe", "inherit"]});
    const [first] = await Promise.race([
      once(readline.createInterface({input: this.process.stdout}), "line"),
      once(this.process, "exit").then(() => ["(exited)"]),
    ]);
    const match = /^corvid serve: listening on http:\/\/127\.0\.0\.1:(\d+)/.exec(first);
    assert.ok(match, `corvid serve did not start: ${first}`);
    this.port = Number(match[1]);
    return this;
  }

  async stop() {
    if (this.process.exitCode !== null) return;
    this.process.kill("SIGTERM");
    await once(this.process, "exit");
  }

  tool(...words) {
    return execFileSync(TOOL, [...words, "--data", this.data], {cwd: this.folder}).toString().trim();
  }

  async close() {
    await this.stop();
    fs.rmSync(this.folder, {recursive: true, force: true});
  }
}

async function withService(body) {
  const service = await new Service().start();
  try {
    await body(service, service.tool("token", "add", "client-tests"));
  } finally {
    await service.close();
  }
}

/** The next `event` that satisfies `matches`, heard through `client.on`. */
function nextEvent(client, event, matches, ms = 15000) {
  return new Promise((resolve, reject) => {
    const timer = setTimeout(() => {
      stop();
      reject(new Error(`no ${event} event in ${ms} ms`));
    }, ms);
    const stop = client.on(event, (value) => {
      if (!matches(value)) return;
      clearTimeout(timer);
      stop();
      resolve(value);
    });
  });
}

/** A proxy that passes everything through, but cuts the line instead of passing on the
 * answer to the first POST /v1/jobs: the service took the job, the client never hears. */
async function cutFirstJobAnswer(port) {
  const proxy = {posts: 0, cut: 0};
  proxy.server = net.createServer((downstream) => {
    const upstream = net.connect(port, "127.0.0.1");
    let cutting = false;
    downstream.on("data", (chunk) => {
      if (chunk.toString("latin1").startsWith("POST /v1/jobs ")) cutting = ++proxy.posts === 1;
      upstream.write(chunk);
    });
    upstream.on("data", (chunk) => {
      if (!cutting) return downstream.write(chunk);
      proxy.cut++;
      downstream.destroy();
    });
    for (const [one, other] of [[downstream, upstream], [upstream, downstream]]) {
      one.on("error", () => {});
      one.on("close", () => other.destroy());
    }
  });
  proxy.server.listen(0, "127.0.0.1");
  await once(proxy.server, "listening");
  proxy.url = `http://127.0.0.1:${proxy.server.address().port}`;
  return proxy;
}

test("a post whose answer is lost is sent again with its key and prints once", {timeout: 60000}, () =>
  withService(async (service, token) => {
    const proxy = await cutFirstJobAnswer(service.port);
    const client = new CorvidClient(proxy.url, {token, retryDelayMs: 50});
    try {
      const job = await client.print(SALE, {key: "till-1-0001"});
      assert.equal(proxy.cut, 1, "the proxy cut the first answer");
      assert.equal(proxy.posts, 2, "the client posted again");
      const direct = new CorvidClient(service.url, {token});
      const {jobs} = await direct.jobs();
      assert.deepEqual(
        jobs.map((j) => [j.id, j.key, j.state]),
        [[job.id, "till-1-0001", "done"]],
      );
      assert.ok(Number.isInteger(jobs[0].document_number), "one invoice number");
      assert.equal(job.document_number, jobs[0].document_number);
    } finally {
      client.close();
      proxy.server.close();
    }
  }),
);

test("events resume through the same client after the service restarts", {timeout: 90000}, () =>
  withService(async (service, token) => {
    const client = new CorvidClient(service.url, {token});
    const connection = [];
    const stopListening = client.on("connection", ({connected}) => connection.push(connected));
    try {
      let heard = nextEvent(client, "job", (job) => job.key === "before" && job.state === "done");
      await client.print(TEXT, {key: "before"});
      await heard;

      const dropped = nextEvent(client, "connection", ({connected}) => !connected);
      await service.stop();
      await dropped;
      const back = nextEvent(client, "connection", ({connected}) => connected);
      await service.start();
      await back;

      heard = nextEvent(client, "job", (job) => job.key === "after" && job.state === "done");
      const direct = new CorvidClient(service.url, {token});
      await direct.print(TEXT, {key: "after"});
      await heard;
      assert.deepEqual(connection, [true, false, true]);
    } finally {
      stopListening();
      client.close();
    }
  }),
);

test("a refused call throws the service's JSON error", {timeout: 60000}, () =>
  withService(async (service, token) => {
    const badPrice = {
      type: "sale",
      document: {items: [{description: "Pan", price: "1.00", quantity: 1, rate: 16}], payments: [{means: 1, amount: 2}]},
    };
    const closedPort = await freePort();
    const cases = [
      ["a bad document", () => new CorvidClient(service.url, {token}).print(badPrice), 400, /document\.items\[0\]\.price/],
      ["a wrong token", () => new CorvidClient(service.url, {token: "0".repeat(64)}).printers(), 401, /token/],
      ["no service", () => new CorvidClient(`http://127.0.0.1:${closedPort}`, {token, retries: 2, retryDelayMs: 10}).print(TEXT), 0, /no answer/],
    ];
    for (const [name, call, status, message] of cases) {
      await assert.rejects(call, (error) => {
        assert.ok(error instanceof CorvidError, name);
        assert.equal(error.status, status, name);
        assert.match(error.message, message, name);
        assert.equal(error.body?.error?.status ?? 0, status, name);
        assert.equal(error.body?.error?.message, status ? error.message : undefined, name);
        return true;
      });
    }
  }),
);

async function freePort() {
  const server = net.createServer().listen(0, "127.0.0.1");
  await once(server, "listening");
  const {port} = server.address();
  server.close();
  await once(server, "close");
  return port;
}
