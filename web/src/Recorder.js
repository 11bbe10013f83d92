// What the visitor keeps: a recording, or a picture.

export class Recorder {
    #recorder = null;

    get running() {
        return this.#recorder !== null;
    }

    /** Starts, or stops and saves. */
    toggle(canvas) {
        if (this.#recorder !== null) {
            this.#recorder.stop();
            this.#recorder = null;
            return;
        }
        const chunks = [];
        const stream = canvas.captureStream(30);
        const recorder = new MediaRecorder(stream, { mimeType: 'video/webm' });
        recorder.ondataavailable = ({ data }) => chunks.push(data);
        recorder.onstop = () => {
            stream.getTracks().forEach((track) => track.stop());
            save(new Blob(chunks, { type: 'video/webm' }), 'vornrenderer.webm');
        };
        recorder.start(1000);
        this.#recorder = recorder;
    }
}

/** Saves what the canvas shows; call it right after a draw. */
export function savePicture(canvas) {
    canvas.toBlob((blob) => save(blob, 'vornrenderer.png'), 'image/png');
}

function save(blob, name) {
    const link = document.createElement('a');
    link.href = URL.createObjectURL(blob);
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
}
