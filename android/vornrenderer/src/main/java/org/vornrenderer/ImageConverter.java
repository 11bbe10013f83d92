package org.vornrenderer;

import android.graphics.ImageFormat;
import android.graphics.Rect;
import android.media.Image;
import android.opengl.GLES30;
import org.jetbrains.annotations.NotNull;

/** Converts images of YUV_420_888 and NV21 to a texture of RGBA. Runs on the GL thread. */
final class ImageConverter {
    private static final int PLANES = 3;
    private static final int CORNERS = 4;
    private static final float MOST = 255;

    private static final String VERTEX_SHADER =
            "#version 300 es\n"
                    + "uniform highp vec4 Crop;\n" // The first corner, and the way to the last.
                    + "uniform highp vec4 Chroma;\n" // From places of luma to those of chroma.
                    + "out highp vec2 place;\n"
                    + "out highp vec2 chromaPlace;\n"
                    + "void main() {\n"
                    + "    vec2 corner = vec2(gl_VertexID & 1, gl_VertexID >> 1);\n"
                    + "    place = Crop.xy + corner * Crop.zw;\n"
                    + "    chromaPlace = place * Chroma.xy;\n"
                    + "    gl_Position = vec4(2.0 * corner - 1.0, 0.0, 1.0);\n"
                    + "}\n";
    private static final String FRAGMENT_SHADER =
            "#version 300 es\n"
                    + "uniform lowp sampler2D Plane0;\n"
                    + "uniform lowp sampler2D Plane1;\n"
                    + "uniform lowp sampler2D Plane2;\n"
                    + "uniform highp vec4 Range;\n" // Scale and offset of luma, then of chroma.
                    + "uniform highp vec4 Weights;\n" // V in red, U and V in green, U in blue.
                    + "in highp vec2 place;\n"
                    + "in highp vec2 chromaPlace;\n"
                    + "out lowp vec4 color;\n"
                    + "void main() {\n"
                    + "    highp float y = texture(Plane0, place).r * Range.x + Range.y;\n"
                    + "    highp float u = texture(Plane1, chromaPlace).r * Range.z + Range.w;\n"
                    + "    highp float v = texture(Plane2, chromaPlace).r * Range.z + Range.w;\n"
                    + "    highp float green = y + u * Weights.y + v * Weights.z;\n"
                    + "    color = vec4(y + v * Weights.x, green, y + u * Weights.w, 1.0);\n"
                    + "}\n";

    private final PlaneTexture[] planes = {
        new PlaneTexture(), new PlaneTexture(), new PlaneTexture()
    };
    private final int[] vertices = new int[1];
    private RenderTarget target;
    private int program;
    private int crop;
    private int chroma;
    private int range;
    private int weights;

    /** Size and crop of the images before: a crop is an object, so it is asked for when they change. */
    private int imageWidth;
    private int imageHeight;
    private final Rect cropped = new Rect();

    /**
     * Converts an image.
     *
     * @return a texture of the image's crop
     * @throws IllegalArgumentException if the image has another format
     * @throws IllegalStateException if the image is closed
     * @throws RendererException if GL has no texture of that size
     */
    @NotNull
    RenderTarget convert(@NotNull Image image) {
        int format = image.getFormat();
        if (format != ImageFormat.YUV_420_888 && format != ImageFormat.NV21) {
            throw new IllegalArgumentException(
                    "the image has the format " + format + ", not YUV_420_888 or NV21");
        }
        int width = image.getWidth();
        int height = image.getHeight();
        prepare(image, width, height);
        Image.Plane[] given = image.getPlanes();
        for (int i = 0; i < PLANES; ++i) {
            GLES30.glActiveTexture(GLES30.GL_TEXTURE0 + i);
            int shift = i == 0 ? 0 : 1;
            planes[i].upload(given[i], width + shift >> shift, height + shift >> shift);
        }
        target.bind();
        draw(image, width, height);
        target.unbind();
        return target;
    }

    private void prepare(Image image, int width, int height) {
        if (program == 0) {
            build();
        }
        if (target == null || imageWidth != width || imageHeight != height) {
            imageWidth = width;
            imageHeight = height;
            cropped.set(image.getCropRect());
            if (target != null) {
                target.close();
            }
            target = new RenderTarget(cropped.width(), cropped.height());
        }
    }

    private void build() {
        program = GlProgram.build(VERTEX_SHADER, FRAGMENT_SHADER);
        crop = GLES30.glGetUniformLocation(program, "Crop");
        chroma = GLES30.glGetUniformLocation(program, "Chroma");
        range = GLES30.glGetUniformLocation(program, "Range");
        weights = GLES30.glGetUniformLocation(program, "Weights");
        GLES30.glUseProgram(program);
        for (int i = 0; i < PLANES; ++i) {
            GLES30.glUniform1i(GLES30.glGetUniformLocation(program, "Plane" + i), i);
        }
        GLES30.glGenVertexArrays(1, vertices, 0);
    }

    private void draw(Image image, float width, float height) {
        GLES30.glViewport(0, 0, target.width(), target.height());
        GLES30.glUseProgram(program);
        GLES30.glBindVertexArray(vertices[0]);
        GLES30.glUniform4f(
                crop, cropped.left / width, cropped.top / height,
                cropped.width() / width, cropped.height() / height);
        // Of an odd size, the last samples of chroma have half a pixel.
        GLES30.glUniform4f(
                chroma, width / 2 / (imageWidth + 1 >> 1), height / 2 / (imageHeight + 1 >> 1),
                0, 0);
        setColors(image);
        GLES30.glDrawArrays(GLES30.GL_TRIANGLE_STRIP, 0, CORNERS);
        GLES30.glBindVertexArray(0);
        GLES30.glUseProgram(0);
        for (int i = PLANES - 1; i >= 0; --i) {
            GLES30.glActiveTexture(GLES30.GL_TEXTURE0 + i);
            GLES30.glBindTexture(GLES30.GL_TEXTURE_2D, 0);
        }
    }

    private void setColors(Image image) {
        ImageColors colors = ImageColors.of(image);
        if (ImageColors.hasFullRange(image)) {
            GLES30.glUniform4f(range, 1, 0, 1, -128 / MOST);
        } else {
            GLES30.glUniform4f(range, MOST / 219, -16F / 219, MOST / 224, -128F / 224);
        }
        GLES30.glUniform4f(weights, colors.vInRed, colors.uInGreen, colors.vInGreen, colors.uInBlue);
    }

    void free(boolean contextLost) {
        for (PlaneTexture plane : planes) {
            plane.free(contextLost);
        }
        if (!contextLost) {
            if (target != null) {
                target.close();
            }
            GLES30.glDeleteProgram(program);
            GLES30.glDeleteVertexArrays(1, vertices, 0);
        }
        target = null;
        program = 0;
        vertices[0] = 0;
    }
}
