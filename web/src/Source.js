// Where pictures come from: the clip, the camera, or a file.

export class Source {
    #video;
    #clip;
    #image = null;
    #stream = null;
    #url = null;
    #isNew = true;

    /** @param {HTMLVideoElement} video shows the clip, and may be loading it already */
    constructor(video) {
        this.#video = video;
        this.#clip = video.src;
        this.#watch();
    }

    /** Width and height of the picture; [0, 0] before there is one. */
    get size() {
        const { videoWidth, videoHeight } = this.#video;
        return this.#image ? [this.#image.width, this.#image.height] : [videoWidth, videoHeight];
    }

    /** The picture that shows. */
    get picture() {
        return this.#image ?? this.#video;
    }

    /** Whether the renderer has not been given the picture yet. */
    get isNew() {
        return this.#isNew;
    }

    /** The picture for the renderer; null if it has it already. */
    takeNew() {
        const picture = this.#isNew ? this.picture : null;
        this.#isNew = this.#image === null && !('requestVideoFrameCallback' in this.#video);
        return picture;
    }

    async openClip() {
        this.#release();
        await this.#play(this.#clip);
    }

    /** Rejects with a DOMException if there is no camera, or if it is refused. */
    async openCamera() {
        if (!navigator.mediaDevices) {
            throw new DOMException('', 'SecurityError');
        }
        const stream = await navigator.mediaDevices.getUserMedia({
            video: { width: { ideal: 1280 }, height: { ideal: 720 }, facingMode: 'user' },
        });
        this.#release();
        this.#stream = stream;
        this.#video.srcObject = stream;
        await this.#video.play();
        this.#isNew = true;
    }

    async openFile(file) {
        if (file.type.startsWith('image/')) {
            const image = await createImageBitmap(file);
            this.#release();
            this.#video.pause();
            this.#image = image;
            this.#isNew = true;
        } else {
            this.#release();
            this.#url = URL.createObjectURL(file);
            await this.#play(this.#url);
        }
    }

    /** The renderer has lost all pictures. */
    forgetUse() {
        this.#isNew = true;
    }

    #watch() {
        this.#video.requestVideoFrameCallback?.(() => {
            this.#isNew ||= this.#image === null;
            this.#watch();
        });
    }

    async #play(url) {
        if (this.#video.src !== url) {
            this.#video.src = url;
        }
        await this.#video.play();
        this.#isNew = true;
    }

    #release() {
        this.#stream?.getTracks().forEach((track) => track.stop());
        if (this.#stream !== null) {
            this.#video.srcObject = null;
        }
        if (this.#url !== null) {
            URL.revokeObjectURL(this.#url);
        }
        this.#image?.close();
        this.#stream = this.#url = this.#image = null;
    }
}
