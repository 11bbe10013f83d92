// Stickers at points of the picture, from -1 to 1, y downwards.

const HALF_WIDTH = 0.05;
const HALF_HEIGHT = 0.1;
/** From a sticker's center to its anchor. */
const ANCHOR = 0.3;

export class Stickers {
    #places = [];

    get count() {
        return this.#places.length;
    }

    add(point) {
        this.#places.push({ ...point });
    }

    /** Makes the topmost one at a point the last one. */
    take({ x, y }) {
        const index = this.#places.findLastIndex(
            (place) => Math.abs(place.x - x) < HALF_WIDTH && Math.abs(place.y - y) < HALF_HEIGHT,
        );
        if (index >= 0) {
            this.#places.push(...this.#places.splice(index, 1));
        }
        return index >= 0;
    }

    moveLast(x, y) {
        const last = this.#places.at(-1);
        if (last) {
            last.x += x;
            last.y += y;
        }
    }

    removeLast() {
        this.#places.pop();
    }

    /** As VornRenderer.setStickers takes them, for an output of a size. */
    anchors(width, height) {
        return this.#places.map(({ x, y }) => ({
            x: Math.round((width / 2) * (1 + x)),
            y: Math.round((height / 2) * (1 + y + ANCHOR)),
        }));
    }
}

/** A star on a tile without holes: a sticker replaces what is below it. */
export function stickerImage() {
    const canvas = new OffscreenCanvas(96, 108);
    const context = canvas.getContext('2d');
    context.fillStyle = '#fff';
    context.fillRect(0, 0, 96, 108);
    context.fillStyle = '#1f8a70';
    context.fillRect(6, 6, 84, 96);
    context.fillStyle = '#ffd35c';
    context.beginPath();
    for (let corner = 0; corner < 10; ++corner) {
        const radius = corner % 2 === 0 ? 36 : 15;
        const angle = (corner * Math.PI) / 5;
        context.lineTo(48 + radius * Math.sin(angle), 56 - radius * Math.cos(angle));
    }
    context.fill();
    return canvas;
}
