// Mouse, touch and keys on the stage.

const KEY_STEP = 0.1;
const ZOOM_STEP = 1.15;
const ARROWS = {
    ArrowLeft: [-1, 0],
    ArrowRight: [1, 0],
    ArrowUp: [0, -1],
    ArrowDown: [0, 1],
};

/**
 * Turns input into calls of `actions`, whose places are points of the output, from -1 to 1:
 *
 * - `press(place)`, `move(dx, dy)` while pressed;
 * - `zoom(factor, place)`, `reset()`, `enter()`, `remove()`.
 */
export function listenTo(canvas, actions) {
    const pointers = new Map();
    const placeOf = (event) => {
        const box = canvas.getBoundingClientRect();
        const fit = Math.min(box.width / canvas.width, box.height / canvas.height);
        return {
            x: (event.clientX - box.left - box.width / 2) / ((canvas.width * fit) / 2),
            y: (event.clientY - box.top - box.height / 2) / ((canvas.height * fit) / 2),
        };
    };

    canvas.addEventListener('pointerdown', (event) => {
        canvas.setPointerCapture(event.pointerId);
        pointers.set(event.pointerId, placeOf(event));
        if (pointers.size === 1) {
            actions.press(placeOf(event));
        }
    });
    canvas.addEventListener('pointermove', (event) => {
        const before = pointers.get(event.pointerId);
        if (!before) {
            return;
        }
        const after = placeOf(event);
        const other = [...pointers].find(([id]) => id !== event.pointerId)?.[1];
        pointers.set(event.pointerId, after);
        if (other) {
            const middle = { x: (after.x + other.x) / 2, y: (after.y + other.y) / 2 };
            actions.zoom(distance(after, other) / Math.max(distance(before, other), 0.01), middle);
        } else {
            actions.move(after.x - before.x, after.y - before.y);
        }
    });
    for (const name of ['pointerup', 'pointercancel']) {
        canvas.addEventListener(name, (event) => pointers.delete(event.pointerId));
    }
    canvas.addEventListener(
        'wheel',
        (event) => {
            event.preventDefault();
            actions.zoom(ZOOM_STEP ** (-event.deltaY / 100), placeOf(event));
        },
        { passive: false },
    );
    canvas.addEventListener('keydown', (event) => {
        const keys = {
            '+': () => actions.zoom(ZOOM_STEP, { x: 0, y: 0 }),
            '-': () => actions.zoom(1 / ZOOM_STEP, { x: 0, y: 0 }),
            0: actions.reset,
            Enter: actions.enter,
            Delete: actions.remove,
            Backspace: actions.remove,
        };
        const arrow = ARROWS[event.key];
        const action = arrow
            ? () => actions.move(arrow[0] * KEY_STEP, arrow[1] * KEY_STEP)
            : keys[event.key === '=' ? '+' : event.key];
        if (action && !event.ctrlKey && !event.metaKey && !event.altKey) {
            event.preventDefault();
            action();
        }
    });
}

function distance(a, b) {
    return Math.hypot(a.x - b.x, a.y - b.y);
}
