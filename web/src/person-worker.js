// Runs @mediapipe/selfie_segmentation, which expects to be in a page: it finds its files by script
// elements, and draws on canvas elements.

self.window = self;
self.document = {
    addEventListener() {},
    createElement(name) {
        return name === 'canvas' ? new OffscreenCanvas(1, 1) : new ScriptElement();
    },
    body: { appendChild: (script) => script.run() },
};

class ScriptElement extends EventTarget {
    setAttribute(name, value) {
        this[name] = value;
    }

    run() {
        importScripts(this.src);
        this.dispatchEvent(new Event('load'));
    }
}

const FOLDER = new URL('selfie_segmentation/', self.location.href).href;
importScripts(`${FOLDER}selfie_segmentation.js`);
const segmentation = new self.SelfieSegmentation({ locateFile: (name) => FOLDER + name });
// The GPU draws the picture meanwhile.
segmentation.setOptions({ modelSelection: 1, useCpuInference: true });

let generation = 0;
segmentation.onResults(({ segmentationMask }) => {
    self.postMessage({ mask: segmentationMask, generation }, [segmentationMask]);
});

self.onmessage = async ({ data }) => {
    generation = data.generation;
    try {
        await segmentation.send({ image: data.picture });
    } catch (error) {
        self.postMessage({ problem: String(error) });
    }
    data.picture.close();
};
