/**
 * Draws video, raw frames or compressed units, into an OpenGL ES texture.
 *
 * <p>{@link org.vornrenderer.VideoRenderer} is all of it; the two enums say what it is given.
 */
package org.vornrenderer;
