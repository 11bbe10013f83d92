/** OpenGL ES without a window, for tests and tools on the desktop. */
package org.vornrenderer.offscreen;
