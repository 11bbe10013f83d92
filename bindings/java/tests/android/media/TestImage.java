package android.media;

import android.graphics.ImageFormat;
import android.graphics.Rect;
import java.nio.ByteBuffer;

/** An image of two halves, each of one Y, U and V. Its buffers end with the last sample. */
public final class TestImage extends Image {
    public int format = ImageFormat.YUV_420_888;
    public int dataSpace;
    public long timestamp;
    public Rect crop;
    public boolean closed;
    public final Plane[] planes;

    private final int width;
    private final int height;

    /** With a chroma step of 2, U and V share their memory, V first (NV21) or U (NV12). */
    public TestImage(
            int width, int height, int chromaStep, boolean vFirst, int padding, int[] left,
            int[] right) {
        this.width = width;
        this.height = height;
        crop = new Rect(0, 0, width, height);
        int columns = (width + 1) / 2;
        int rows = (height + 1) / 2;
        ByteBuffer luma = ByteBuffer.allocateDirect((width + padding) * height);
        int rowBytes = columns * chromaStep + padding;
        ByteBuffer u = ByteBuffer.allocateDirect(rowBytes * rows + chromaStep);
        ByteBuffer v = chromaStep == 1 ? ByteBuffer.allocateDirect(u.capacity()) : u.duplicate();
        u.position(chromaStep == 2 && vFirst ? 1 : 0);
        v.position(chromaStep == 2 && !vFirst ? 1 : 0);
        planes =
                new Plane[] {
                    new TestPlane(luma, width, height, 1, width + padding, left[0], right[0]),
                    new TestPlane(u, columns, rows, chromaStep, rowBytes, left[1], right[1]),
                    new TestPlane(v, columns, rows, chromaStep, rowBytes, left[2], right[2]),
                };
    }

    @Override
    public int getFormat() {
        return format;
    }

    @Override
    public int getWidth() {
        if (closed) {
            throw new IllegalStateException("Image is already closed");
        }
        return width;
    }

    @Override
    public int getHeight() {
        return height;
    }

    @Override
    public long getTimestamp() {
        return timestamp;
    }

    @Override
    public Plane[] getPlanes() {
        return planes;
    }

    @Override
    public Rect getCropRect() {
        return crop;
    }

    @Override
    public int getDataSpace() {
        super.getDataSpace();
        return dataSpace;
    }

    @Override
    public void close() {
        closed = true;
    }

    /** A plane from the buffer's position on. */
    public static final class TestPlane extends Plane {
        public int step;
        public ByteBuffer bytes;
        private final int rowBytes;

        TestPlane(
                ByteBuffer memory, int width, int height, int step, int rowBytes, int left,
                int right) {
            this.step = step;
            this.rowBytes = rowBytes;
            int begin = memory.position();
            for (int i = 0; i < width * height; ++i) {
                int value = i % width < width / 2 ? left : right;
                memory.put(begin + i / width * rowBytes + i % width * step, (byte) value);
            }
            memory.limit(begin + (height - 1) * rowBytes + (width - 1) * step + 1);
            bytes = memory;
        }

        @Override
        public int getRowStride() {
            return rowBytes;
        }

        @Override
        public int getPixelStride() {
            return step;
        }

        @Override
        public ByteBuffer getBuffer() {
            return bytes;
        }
    }
}
