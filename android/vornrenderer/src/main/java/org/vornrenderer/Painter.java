package org.vornrenderer;

import android.opengl.GLES30;

/**
 * Draws textures as rectangles into the framebuffer that is bound. Runs on the GL thread.
 *
 * <p>Places are pixels of the screen, from its first row and column.
 */
final class Painter {
    /** How a texture's alpha acts. The framebuffer gets the alpha 1 in any case. */
    enum Blend {
        /** Not at all. */
        OPAQUE(GLES30.GL_ONE, GLES30.GL_ZERO),
        /** The color is not multiplied by it yet. */
        STRAIGHT(GLES30.GL_SRC_ALPHA, GLES30.GL_ONE_MINUS_SRC_ALPHA),
        /** The color is multiplied by it. */
        PREMULTIPLIED(GLES30.GL_ONE, GLES30.GL_ONE_MINUS_SRC_ALPHA);

        private final int source;
        private final int below;

        Blend(int source, int below) {
            this.source = source;
            this.below = below;
        }
    }

    private static final int CORNERS = 4;

    private static final String VERTEX_SHADER =
            "#version 300 es\n"
                    + "uniform vec4 Place;\n" // The first corner, and the way to the last.
                    + "out highp vec2 place;\n"
                    + "void main() {\n"
                    + "    place = vec2(gl_VertexID & 1, gl_VertexID >> 1);\n"
                    + "    gl_Position = vec4(Place.xy + place * Place.zw, 0.0, 1.0);\n"
                    + "}\n";
    private static final String FRAGMENT_SHADER =
            "#version 300 es\n"
                    + "uniform lowp sampler2D Source;\n"
                    + "in highp vec2 place;\n"
                    + "out lowp vec4 color;\n"
                    + "void main() {\n"
                    + "    color = texture(Source, place);\n"
                    + "}\n";

    private final int[] vertices = new int[1];
    private int program;
    private int placeLocation;
    private float width;
    private float height;

    static void clear(int color) {
        GLES30.glClearColor(channel(color, 16), channel(color, 8), channel(color, 0), 1);
        GLES30.glClear(GLES30.GL_COLOR_BUFFER_BIT);
    }

    /** Comes before the calls of draw. The screen has the size of the framebuffer. */
    void begin(int screenWidth, int screenHeight) {
        if (program == 0) {
            program = GlProgram.build(VERTEX_SHADER, FRAGMENT_SHADER);
            placeLocation = GLES30.glGetUniformLocation(program, "Place");
            GLES30.glGenVertexArrays(1, vertices, 0);
        }
        width = screenWidth;
        height = screenHeight;
        GLES30.glViewport(0, 0, screenWidth, screenHeight);
        GLES30.glUseProgram(program);
        GLES30.glBindVertexArray(vertices[0]);
        GLES30.glEnable(GLES30.GL_BLEND);
        GLES30.glActiveTexture(GLES30.GL_TEXTURE0);
    }

    /** Draws a texture whose first row comes to the top, or, with a negative height, to the bottom. */
    void draw(int texture, float left, float top, float drawnWidth, float drawnHeight, Blend blend) {
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, texture);
        GLES30.glBlendFuncSeparate(
                blend.source, blend.below, GLES30.GL_ONE, GLES30.GL_ONE_MINUS_SRC_ALPHA);
        GLES30.glUniform4f(
                placeLocation,
                2 * left / width - 1,
                1 - 2 * top / height,
                2 * drawnWidth / width,
                -2 * drawnHeight / height);
        GLES30.glDrawArrays(GLES30.GL_TRIANGLE_STRIP, 0, CORNERS);
    }

    void end() {
        GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
        GLES30.glDisable(GLES30.GL_BLEND);
        GLES30.glBindVertexArray(0);
        GLES30.glUseProgram(0);
    }

    void free(boolean contextLost) {
        if (program != 0 && !contextLost) {
            GLES30.glDeleteProgram(program);
            GLES30.glDeleteVertexArrays(1, vertices, 0);
        }
        program = 0;
    }

    private static float channel(int color, int shift) {
        return (color >> shift & 0xFF) / 255F;
    }
}
