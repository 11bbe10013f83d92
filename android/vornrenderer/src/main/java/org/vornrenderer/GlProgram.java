package org.vornrenderer;

import android.opengl.GLES30;
import org.jetbrains.annotations.NotNull;

/** A program of GL. Runs on the GL thread. */
final class GlProgram {
    private GlProgram() {}

    /**
     * Compiles and links.
     *
     * @return GL name
     * @throws RendererException if GL refuses
     */
    static int build(@NotNull String vertexShader, @NotNull String fragmentShader) {
        int vertex = compile(GLES30.GL_VERTEX_SHADER, vertexShader);
        int fragment = compile(GLES30.GL_FRAGMENT_SHADER, fragmentShader);
        int program = GLES30.glCreateProgram();
        GLES30.glAttachShader(program, vertex);
        GLES30.glAttachShader(program, fragment);
        GLES30.glLinkProgram(program);
        GLES30.glDeleteShader(vertex);
        GLES30.glDeleteShader(fragment);
        int[] linked = new int[1];
        GLES30.glGetProgramiv(program, GLES30.GL_LINK_STATUS, linked, 0);
        if (linked[0] == 0) {
            String reason = GLES30.glGetProgramInfoLog(program);
            GLES30.glDeleteProgram(program);
            throw new RendererException(
                    RendererException.Reason.GL, "GL refused a program: " + reason, null);
        }
        return program;
    }

    private static int compile(int stage, String source) {
        int shader = GLES30.glCreateShader(stage);
        GLES30.glShaderSource(shader, source);
        GLES30.glCompileShader(shader);
        return shader;
    }
}
