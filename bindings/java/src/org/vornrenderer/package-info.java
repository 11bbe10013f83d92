/**
 * Draws video, raw frames or compressed units, into an OpenGL ES texture.
 *
 * <p>{@link org.vornrenderer.VideoRenderer} draws. {@link org.vornrenderer.VideoSource} and {@link
 * org.vornrenderer.PixelLayout} name the formats of its input.
 */
package org.vornrenderer;
