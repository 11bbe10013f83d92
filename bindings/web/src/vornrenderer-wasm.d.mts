/** The module that Emscripten writes. */
declare const createModule: (options: { locateFile: () => string }) => Promise<any>;
export default createModule;
