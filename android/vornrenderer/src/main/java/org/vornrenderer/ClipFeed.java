package org.vornrenderer;

import android.media.MediaExtractor;
import android.media.MediaFormat;
import java.io.IOException;
import java.nio.Buffer;
import java.nio.ByteBuffer;
import org.jetbrains.annotations.NotNull;

/** The H.264 units of a clip, in decoding order. */
final class ClipFeed {
    /** Where a clip comes from. */
    interface Source {
        void open(@NotNull MediaExtractor extractor) throws IOException;
    }

    private static final int DEFAULT_FRAME_RATE = 30;
    private static final int SECOND_US = 1_000_000;
    private static final ByteBuffer NO_BYTES = ByteBuffer.allocateDirect(0);

    private final MediaExtractor extractor = new MediaExtractor();
    private final MediaFormat format;
    private final ByteBuffer unit;
    private boolean first = true;
    private boolean ended;

    /**
     * Opens a clip at its start.
     *
     * @throws IOException if it cannot be read
     * @throws IllegalArgumentException if it has no H.264 video
     */
    ClipFeed(@NotNull Source source) throws IOException {
        try {
            source.open(extractor);
            format = selectVideo();
            unit = ByteBuffer.allocateDirect(capacity());
        } catch (IOException | RuntimeException e) {
            extractor.release();
            throw e;
        }
    }

    int width() {
        return format.getInteger(MediaFormat.KEY_WIDTH);
    }

    int height() {
        return format.getInteger(MediaFormat.KEY_HEIGHT);
    }

    /** Clockwise: 0, 90, 180 or 270 degrees. */
    int rotation() {
        return number(MediaFormat.KEY_ROTATION, 0);
    }

    long durationUs() {
        return format.containsKey(MediaFormat.KEY_DURATION)
                ? format.getLong(MediaFormat.KEY_DURATION)
                : 0;
    }

    long frameTimeUs() {
        return SECOND_US / Math.max(1, number(MediaFormat.KEY_FRAME_RATE, DEFAULT_FRAME_RATE));
    }

    /** The presentation time of the next unit; negative after the last. */
    long nextTimeUs() {
        return extractor.getSampleTime();
    }

    /** Whether the renderer has all units. */
    boolean ended() {
        return ended;
    }

    /** Continues with the key frame before a time. The renderer must be flushed. */
    void seek(long timeUs) {
        extractor.seekTo(timeUs, MediaExtractor.SEEK_TO_PREVIOUS_SYNC);
        first = true;
        ended = false;
    }

    /**
     * Passes on the next unit, or the end of the stream.
     *
     * @return false if the decoder has no room now
     * @throws RendererException if the decoder failed
     */
    boolean feed(@NotNull VideoRenderer renderer) {
        if (ended) {
            return false;
        }
        boolean read = readUnit();
        QueueResult result =
                read
                        ? renderer.queueUnit(unit, extractor.getSampleTime(), 0)
                        : renderer.queueUnit(NO_BYTES, 0, VideoRenderer.UNIT_END);
        if (result == QueueResult.FAILED) {
            RendererException.Reason reason = renderer.decoderState().failure;
            throw new RendererException(reason, "the decoder failed: " + reason, null);
        }
        if (result == QueueResult.NO_ROOM) {
            return false;
        }
        first = false;
        ended = !read;
        extractor.advance();
        return true;
    }

    void close() {
        extractor.release();
    }

    private MediaFormat selectVideo() {
        for (int track = 0; track < extractor.getTrackCount(); ++track) {
            MediaFormat candidate = extractor.getTrackFormat(track);
            if (MediaFormat.MIMETYPE_VIDEO_AVC.equals(candidate.getString(MediaFormat.KEY_MIME))) {
                extractor.selectTrack(track);
                return candidate;
            }
        }
        throw new IllegalArgumentException("the clip has no H.264 video");
    }

    private int number(String key, int otherwise) {
        return format.containsKey(key) ? format.getInteger(key) : otherwise;
    }

    /** The size of the largest unit and of the parameter sets. */
    private int capacity() {
        int bytes = number(MediaFormat.KEY_MAX_INPUT_SIZE, width() * height() * 3 / 2);
        for (String key : new String[] {"csd-0", "csd-1"}) {
            ByteBuffer parameterSet = format.getByteBuffer(key);
            bytes += parameterSet != null ? parameterSet.remaining() : 0;
        }
        return bytes;
    }

    /** Reads a unit. The first one gets the parameter sets in front. */
    private boolean readUnit() {
        Buffer bounds = unit; // Its methods are the same on all versions of Android.
        bounds.clear();
        if (first) {
            putParameterSet("csd-0");
            putParameterSet("csd-1");
        }
        int begin = unit.position();
        int size = extractor.readSampleData(unit, begin);
        bounds.limit(begin + Math.max(0, size));
        bounds.position(0);
        return size >= 0;
    }

    private void putParameterSet(String key) {
        ByteBuffer parameterSet = format.getByteBuffer(key);
        if (parameterSet != null) {
            unit.put(parameterSet.duplicate());
        }
    }
}
