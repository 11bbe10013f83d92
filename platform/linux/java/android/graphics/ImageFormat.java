package android.graphics;

/** How images are coded. */
public class ImageFormat {
    public static final int NV21 = 0x11;
    public static final int PRIVATE = 0x22;
    public static final int YUV_420_888 = 0x23;
}
