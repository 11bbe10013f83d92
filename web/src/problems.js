// What went wrong, and what to do.

const TEXTS = {
    'no-webgl2': 'This browser has no WebGL 2. Switch hardware acceleration on, or use a current browser.',
    'context-lost': 'The browser took the graphics away. The picture comes back when it returns them.',
    load: 'A part of the page could not be loaded. Check the connection and load the page again.',
    NotAllowedError: 'The camera was refused. Allow it beside the address of this page, then press Camera again.',
    NotFoundError: 'There is no camera. Connect one, or open a file.',
    NotReadableError: 'The camera is in use by another program. Close that one, then press Camera again.',
    SecurityError: 'Cameras need a page from https or from localhost.',
    NotSupportedError: 'This browser cannot play that file. Try an MP4 or WebM video, or a picture.',
    InvalidStateError: 'This browser cannot show that file. Try a PNG, JPEG or WebP picture, or a video.',
};

/** @param {any} error a VornError or a DOMException */
export function textOf(error) {
    return TEXTS[error.code] ?? TEXTS[error.name] ?? `Something failed: ${error.message ?? error}`;
}
