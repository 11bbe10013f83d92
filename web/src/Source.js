// Where pictures come from: the clip, the camera, or a file.

export class Source {
    #video = document.createElement('video');
    #image = null;
    #stream = null;
    #url = null;
    #used = null;

    constructor() {
        Object.assign(this.#video, { muted: true, loop: true, playsInline: true });
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

    /** The picture for the renderer; null if it has it already. */
    get newPicture() {
        if (this.#image !== null && this.#used === this.#image) {
            return null;
        }
        this.#used = this.#image;
        return this.picture;
    }

    async openClip() {
        this.#release();
        await this.#play('clip.mp4');
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
    }

    async openFile(file) {
        if (file.type.startsWith('image/')) {
            const image = await createImageBitmap(file);
            this.#release();
            this.#image = image;
        } else {
            this.#release();
            this.#url = URL.createObjectURL(file);
            await this.#play(this.#url);
        }
    }

    /** The renderer has lost all pictures. */
    forgetUse() {
        this.#used = null;
    }

    async #play(url) {
        this.#video.src = url;
        await this.#video.play();
    }

    #release() {
        this.#stream?.getTracks().forEach((track) => track.stop());
        this.#video.srcObject = null;
        if (this.#url !== null) {
            URL.revokeObjectURL(this.#url);
        }
        this.#image?.close();
        this.#stream = this.#url = this.#image = this.#used = null;
    }
}
