// The mask of the person in a picture, computed in a worker at its own pace.

const WIDTH = 256;
/** Milliseconds of a mask that disturbs no picture. */
const QUICK = 100;

export class PersonMask {
    /** Milliseconds that the last mask took. */
    ms = 0;
    #worker = null;
    #busy = false;
    #asked = 0;
    #pauseEnd = 0;
    #canvas = new OffscreenCanvas(WIDTH, WIDTH);
    #mask = new OffscreenCanvas(WIDTH, WIDTH);
    #bitmap = null;
    #mirrored = false;
    #isNew = false;
    #generation = 0;

    /** @param {(message: string) => void} onProblem */
    constructor(onProblem) {
        this.onProblem = onProblem;
    }

    get exists() {
        return this.#bitmap !== null;
    }

    /** Whether `take` returns a mask. */
    isNew(mirrored) {
        return this.#bitmap !== null && (this.#isNew || mirrored !== this.#mirrored);
    }

    /** Forgets the mask: the next picture is another one. */
    reset() {
        this.#bitmap?.close();
        this.#bitmap = null;
        ++this.#generation;
    }

    /**
     * Asks for the mask of a picture unless one is being computed. After a slow mask there is a pause
     * as long, so that the picture goes on where one processor does all.
     */
    update(source, width, height) {
        if (this.#busy || performance.now() < this.#pauseEnd) {
            return;
        }
        this.#worker ??= this.#start();
        this.#busy = true;
        this.#asked = performance.now();
        this.#canvas.height = Math.max(Math.round((WIDTH * height) / width), 1);
        this.#canvas.getContext('2d').drawImage(source, 0, 0, WIDTH, this.#canvas.height);
        const picture = this.#canvas.transferToImageBitmap();
        this.#worker.postMessage({ picture, generation: this.#generation }, [picture]);
    }

    /** The newest mask, as it lies on a mirrored picture or not; undefined if it was taken before. */
    take(mirrored) {
        if (!this.isNew(mirrored)) {
            return undefined;
        }
        this.#isNew = false;
        this.#mirrored = mirrored;
        Object.assign(this.#mask, { width: this.#bitmap.width, height: this.#bitmap.height });
        const context = this.#mask.getContext('2d');
        context.setTransform(mirrored ? -1 : 1, 0, 0, 1, mirrored ? this.#mask.width : 0, 0);
        context.drawImage(this.#bitmap, 0, 0);
        return this.#mask;
    }

    #start() {
        const worker = new Worker(new URL('person-worker.js', import.meta.url));
        worker.onmessage = ({ data }) => this.#receive(data);
        worker.onerror = () => this.onProblem('The person mask could not be loaded.');
        return worker;
    }

    #receive({ mask, problem, generation }) {
        const now = performance.now();
        this.#busy = false;
        const ms = now - this.#asked;
        this.#pauseEnd = ms < QUICK ? now : now + Math.min(ms, 1000);
        if (problem) {
            this.onProblem(`The person mask failed: ${problem}`);
        } else if (generation === this.#generation) {
            this.#bitmap?.close();
            this.#bitmap = mask;
            this.#isNew = true;
            this.ms = ms;
        } else {
            mask.close();
        }
    }
}
