package android.hardware;

/** How colors are coded. Since API level 33. */
public final class DataSpace {
    public static final int STANDARD_BT709 = 1 << 16;
    public static final int STANDARD_BT601_625 = 2 << 16;
    public static final int STANDARD_BT2020 = 6 << 16;
    public static final int STANDARD_BT2020_CONSTANT_LUMINANCE = 7 << 16;
    public static final int RANGE_FULL = 1 << 27;
    public static final int RANGE_LIMITED = 2 << 27;

    private static final int STANDARDS = 63 << 16;
    private static final int RANGES = 7 << 27;

    private DataSpace() {}

    public static int getStandard(int dataSpace) {
        return dataSpace & STANDARDS;
    }

    public static int getRange(int dataSpace) {
        return dataSpace & RANGES;
    }
}
