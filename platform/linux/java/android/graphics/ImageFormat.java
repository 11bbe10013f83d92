package android.graphics;

/** How images are coded. */
public class ImageFormat {
    public static final int YUV_420_888 = 0x23;
}
