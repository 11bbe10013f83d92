/**
 * Draws video, raw frames or compressed units, into an OpenGL ES texture.
 *
 * <p>{@link org.vornrenderer.VideoRenderer} draws; the two enums name the formats of its input.
 */
package org.vornrenderer;
