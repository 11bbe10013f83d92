// Where the camera stands, and what of the picture it sees.

import { ZOOM_FIT } from 'vornrenderer';

const LEAST = 0.5;
const MOST = 8;

/** Picture's size divided by the output's at the camera's distance 1. */
const SCALE_AT_1 = 3 - ZOOM_FIT / 2;

export class View {
    x = 0;
    y = 0;
    /** The picture's size divided by the output's. */
    scale = 1;

    reset() {
        Object.assign(this, { x: 0, y: 0, scale: 1 });
    }

    /** As VornRenderer.setView takes it. */
    get camera() {
        return { x: this.x, y: this.y, zoom: 6 - (2 * SCALE_AT_1) / this.scale };
    }

    /** The picture's point at a point of the output; both from -1 to 1, y downwards. */
    pointAt({ x, y }) {
        return { x: this.x + x / this.scale, y: this.y + y / this.scale };
    }

    /** Moves the picture by parts of half the output. */
    move(x, y) {
        this.x = clamp(this.x - x / this.scale, -1, 1);
        this.y = clamp(this.y - y / this.scale, -1, 1);
    }

    /** Zooms; the picture's point at `fixed` stays where it is. */
    zoomTo(scale, fixed = { x: 0, y: 0 }) {
        const before = this.pointAt(fixed);
        this.scale = clamp(scale, LEAST, MOST);
        const after = this.pointAt(fixed);
        this.x = clamp(this.x + before.x - after.x, -1, 1);
        this.y = clamp(this.y + before.y - after.y, -1, 1);
    }
}

function clamp(value, least, most) {
    return Math.min(Math.max(value, least), most);
}
