// corvid-client.js: print fiscal documents through `corvid serve` from a web page or Node.
// One ES module with no dependencies. In Node 20, run with --experimental-websocket for
// events (or pass a WebSocket class).

const FINISHED = new Set(["done", "failed", "cancelled", "attention"]);
const EVENTS = new Set(["job", "printer", "connection"]);
const FIRST_RECONNECT_MS = 250;
const LAST_RECONNECT_MS = 5000;

/** A call the service refused, or one that got no answer at all. */
export class CorvidError extends Error {
  /**
   * @param {string} message the service's message, or what went wrong on the way
   * @param {{status?: number, body?: object|null, cause?: unknown}} [details]
   */
  constructor(message, {status = 0, body = null, cause} = {}) {
    super(message, cause === undefined ? undefined : {cause});
    this.name = "CorvidError";
    /** The HTTP status; 0 when the service gave no answer (network failure). */
    this.status = status;
    /** The service's JSON, `{"error": {"status", "message"}}`, or null. */
    this.body = body;
  }
}

/** A client of one print service, with one token. */
export class CorvidClient {
  #url;
  #token;
  #retries;
  #retryDelayMs;
  #pollMs;
  #fetch;
  #WebSocket;
  #listeners = new Map([...EVENTS].map((name) => [name, new Set()]));
  #socket = null;
  #reconnectTimer = null;
  #reconnectMs = FIRST_RECONNECT_MS;
  #connected = null; // null until the first open or close has been reported
  #closed = false;

  /**
   * @param {string} url the service, e.g. "http://127.0.0.1:8720"
   * @param {object} [options]
   * @param {string} [options.token] the token every call carries
   * @param {number} [options.retries=5] posts sent again after a network failure
   * @param {number} [options.retryDelayMs=300] the first wait before a retry; it doubles
   * @param {number} [options.pollMs=1000] how often print() asks for its job while waiting
   * @param {Function} [options.WebSocket] defaults to globalThis.WebSocket
   * @param {Function} [options.fetch] defaults to globalThis.fetch
   */
  constructor(url, {token, retries = 5, retryDelayMs = 300, pollMs = 1000, WebSocket, fetch} = {}) {
    this.#url = String(url).replace(/\/+$/, "");
    this.#token = token;
    this.#retries = retries;
    this.#retryDelayMs = retryDelayMs;
    this.#pollMs = pollMs;
    this.#fetch = fetch ?? globalThis.fetch?.bind(globalThis);
    this.#WebSocket = WebSocket ?? globalThis.WebSocket;
  }

  /** The service's address, without a trailing slash. */
  get url() {
    return this.#url;
  }

  /** True while the event stream is open, false once it dropped, null before. */
  get connected() {
    return this.#connected;
  }

  /** A fresh idempotency key. */
  static newKey() {
    if (globalThis.crypto?.randomUUID) return globalThis.crypto.randomUUID();
    // Pages served over plain http (not a secure context) have no randomUUID.
    const bytes = globalThis.crypto.getRandomValues(new Uint8Array(16));
    bytes[6] = (bytes[6] & 0x0f) | 0x40;
    bytes[8] = (bytes[8] & 0x3f) | 0x80;
    const hex = [...bytes].map((b) => b.toString(16).padStart(2, "0")).join("");
    return `${hex.slice(0, 8)}-${hex.slice(8, 12)}-${hex.slice(12, 16)}-${hex.slice(16, 20)}-${hex.slice(20)}`;
  }

  /**
   * Trades a pairing code (from `corvid token pair NAME`) for a token.
   * @returns {Promise<{token: string, name: string}>}
   * @throws {CorvidError} status 401 for a wrong, used or expired code
   */
  static async pair(url, code, {fetch} = {}) {
    const client = new CorvidClient(url, {fetch});
    return client.#call("POST", "/v1/pair", {body: {code: String(code)}});
  }

  /**
   * Posts a job and waits until it is done, failed, cancelled or needs attention.
   * A post that gets no answer is sent again with the same key, so it prints once.
   * @param {object} job the envelope: {type, document, printer?}
   * @param {object} [options]
   * @param {string} [options.key] the idempotency key; a fresh one by default
   * @param {string} [options.printer] the printer's name, set into the envelope
   * @param {AbortSignal} [options.signal] stops the posting and the waiting
   * @returns {Promise<object>} the finished job (check its `state`)
   */
  async print(job, {key = CorvidClient.newKey(), printer, signal} = {}) {
    const envelope = printer === undefined ? job : {...job, printer};
    const accepted = await this.#postJob(envelope, key, signal);
    if (FINISHED.has(accepted.state)) return accepted;
    return this.#awaitEnd(accepted.id, signal);
  }

  /** One job: {id, key, printer, type, state, steps, document_number, total, error, ...}. */
  async job(id) {
    return this.#call("GET", `/v1/jobs/${encodeURIComponent(id)}`);
  }

  /**
   * A page of the journal, newest first: {jobs: [...], next}.
   * @param {{since?: string, state?: string, printer?: string, before?: number, limit?: number}} [query]
   */
  async jobs(query = {}) {
    const params = new URLSearchParams();
    for (const [name, value] of Object.entries(query))
      if (value !== undefined && value !== null) params.set(name, String(value));
    const search = params.toString();
    return this.#call("GET", "/v1/jobs" + (search ? "?" + search : ""));
  }

  /** The printers: [{id, port, online, sts1, sts2, status_text, serial, model, queue, paper}]. */
  async printers() {
    return this.#call("GET", "/v1/printers");
  }

  /** A printer's status, counters and totals of the day, and its last closing. */
  async status(printer) {
    return this.#call("GET", `/v1/printers/${encodeURIComponent(printer)}/status`);
  }

  /** The simulated printer's paper roll: {printer, text}. */
  async paper(printer) {
    return this.#call("GET", `/v1/printers/${encodeURIComponent(printer)}/paper`);
  }

  /**
   * Settles a job in `attention` as a person found it on the paper.
   * @param {"done"|"failed"} as
   */
  async resolve(id, as) {
    return this.#call("POST", `/v1/jobs/${encodeURIComponent(id)}/resolve`, {
      body: {as},
      key: CorvidClient.newKey(),
    });
  }

  /**
   * Listens to "job" (the job's JSON), "printer" (the printer's JSON) or "connection"
   * ({connected}). The first listener opens the event stream, which reconnects by itself;
   * when the last one leaves, the stream closes.
   * @returns {() => void} removes this listener
   */
  on(event, fn) {
    if (!EVENTS.has(event)) throw new TypeError(`unknown event "${event}": job, printer or connection`);
    if (typeof fn !== "function") throw new TypeError("on() needs a function");
    if (this.#closed) throw new Error("this CorvidClient was closed");
    if (typeof this.#WebSocket !== "function")
      throw new Error(
        "no WebSocket here: pass {WebSocket} to CorvidClient, or run Node 20 with --experimental-websocket",
      );
    this.#listeners.get(event).add(fn);
    if (!this.#socket && !this.#reconnectTimer) this.#openSocket();
    return () => {
      this.#listeners.get(event).delete(fn);
      if (this.#listenerCount() === 0) this.#stopSocket();
    };
  }

  /** Closes the event stream and stops reconnecting; HTTP calls still work. */
  close() {
    this.#closed = true;
    for (const set of this.#listeners.values()) set.clear();
    this.#stopSocket();
  }

  // A network failure is sent again with the same key. So are 502, 503 and 504: they come
  // from a proxy or a service starting or stopping, and mean the job may not have been
  // taken. Any other answer is the service's decision and would only come back again.
  async #postJob(envelope, key, signal) {
    for (let attempt = 0; ; attempt++) {
      try {
        return await this.#call("POST", "/v1/jobs", {body: envelope, key, signal});
      } catch (error) {
        const retriable = error instanceof CorvidError && [0, 502, 503, 504].includes(error.status);
        if (!retriable || attempt >= this.#retries) throw error;
        await sleep(this.#retryDelayMs * 2 ** attempt, signal);
      }
    }
  }

  // Events end the wait at once; asking every pollMs (and on each reconnection) covers
  // events missed while the stream was down, and pages or programs with no WebSocket.
  #awaitEnd(id, signal) {
    return new Promise((resolve, reject) => {
      const stops = [];
      let waiting = true;
      let timer = null;
      let asking = false;
      const finish = (settle, value) => {
        waiting = false;
        stops.splice(0).forEach((stop) => stop());
        clearTimeout(timer);
        settle(value);
      };
      const consider = (job) => {
        if (waiting && job?.id === id && FINISHED.has(job.state)) finish(resolve, job);
      };
      const ask = async () => {
        if (asking || !waiting) return;
        asking = true;
        clearTimeout(timer);
        try {
          consider(await this.job(id));
        } catch (error) {
          // Keep waiting through a service restart; a refusal (401, 404) ends the wait.
          if (error.status > 0 && error.status < 500) finish(reject, error);
        } finally {
          asking = false;
        }
        if (waiting) timer = setTimeout(ask, this.#pollMs);
      };
      if (signal) {
        if (signal.aborted) return reject(abortReason(signal));
        const onAbort = () => finish(reject, abortReason(signal));
        signal.addEventListener("abort", onAbort);
        stops.push(() => signal.removeEventListener("abort", onAbort));
      }
      if (typeof this.#WebSocket === "function" && !this.#closed) {
        stops.push(this.on("job", consider));
        stops.push(this.on("connection", ({connected}) => connected && ask()));
      }
      ask();
    });
  }

  async #call(method, path, {body, key, signal} = {}) {
    const headers = {};
    if (this.#token) headers.Authorization = `Bearer ${this.#token}`;
    if (body !== undefined) headers["Content-Type"] = "application/json";
    if (key) headers["Idempotency-Key"] = key;
    let answer;
    let text;
    try {
      answer = await this.#fetch(this.#url + path, {
        method,
        headers,
        body: body === undefined ? undefined : JSON.stringify(body),
        signal,
      });
      text = await answer.text();
    } catch (error) {
      if (signal?.aborted) throw abortReason(signal);
      throw new CorvidError(`${method} ${path}: no answer from ${this.#url} (${error.message})`, {
        cause: error,
      });
    }
    const json = parseJson(text);
    if (!answer.ok) {
      const message = json?.error?.message ?? `${answer.status} ${answer.statusText}`.trim();
      throw new CorvidError(message, {status: answer.status, body: json});
    }
    return json;
  }

  #listenerCount() {
    let count = 0;
    for (const set of this.#listeners.values()) count += set.size;
    return count;
  }

  #openSocket() {
    this.#reconnectTimer = null;
    const address = `${this.#url.replace(/^http/, "ws")}/v1/events?token=${encodeURIComponent(this.#token ?? "")}`;
    const socket = new this.#WebSocket(address);
    this.#socket = socket;
    socket.onopen = () => {
      this.#reconnectMs = FIRST_RECONNECT_MS;
      this.#report(true);
    };
    socket.onmessage = (message) => {
      const event = parseJson(message.data);
      if (event?.event === "job" || event?.event === "printer") this.#emit(event.event, event[event.event]);
    };
    socket.onerror = () => {}; // a close always follows
    socket.onclose = () => {
      if (this.#socket !== socket) return;
      this.#socket = null;
      this.#report(false);
      if (this.#socket || this.#listenerCount() === 0) return;
      this.#reconnectTimer = setTimeout(() => this.#openSocket(), this.#reconnectMs);
      this.#reconnectMs = Math.min(this.#reconnectMs * 2, LAST_RECONNECT_MS);
    };
  }

  #stopSocket() {
    clearTimeout(this.#reconnectTimer);
    this.#reconnectTimer = null;
    const socket = this.#socket;
    this.#socket = null;
    this.#connected = null;
    this.#reconnectMs = FIRST_RECONNECT_MS;
    socket?.close();
  }

  #report(connected) {
    if (this.#connected === connected) return;
    this.#connected = connected;
    this.#emit("connection", {connected});
  }

  #emit(event, value) {
    for (const fn of [...this.#listeners.get(event)]) {
      try {
        fn(value);
      } catch (error) {
        // One listener's fault must not keep the others from hearing the event.
        (globalThis.reportError ?? console.error)(error);
      }
    }
  }
}

function parseJson(text) {
  try {
    return text ? JSON.parse(text) : null;
  } catch {
    return null;
  }
}

function abortReason(signal) {
  return signal.reason ?? new DOMException("aborted", "AbortError");
}

function sleep(ms, signal) {
  return new Promise((resolve, reject) => {
    if (signal?.aborted) return reject(abortReason(signal));
    const timer = setTimeout(() => {
      signal?.removeEventListener("abort", onAbort);
      resolve();
    }, ms);
    const onAbort = () => {
      clearTimeout(timer);
      reject(abortReason(signal));
    };
    signal?.addEventListener("abort", onAbort, {once: true});
  });
}
