package org.vornrenderer.sample;

import android.content.Context;
import android.media.MediaExtractor;
import android.media.MediaFormat;
import android.net.Uri;
import java.io.IOException;
import java.nio.Buffer;
import java.nio.ByteBuffer;
import org.vornrenderer.QueueResult;
import org.vornrenderer.VideoRenderer;

/** Passes the access units of a file to a renderer at the file's frame rate, in a loop. */
final class UnitFeed {
    private static final int DEFAULT_FRAME_RATE = 30;
    private static final long SECOND_NS = 1_000_000_000L;

    private final MediaExtractor extractor = new MediaExtractor();
    private final MediaFormat format;
    private final ByteBuffer unit;
    private final long intervalNs;
    private boolean first = true;
    private long dueNs = System.nanoTime();

    /**
     * Opens a file at the key frame before a time.
     *
     * @throws IOException if it cannot be read
     * @throws IllegalArgumentException if it has no H.264 video
     */
    UnitFeed(Context context, Uri file, long fromUs) throws IOException {
        try {
            extractor.setDataSource(context, file, null);
            format = selectVideo();
        } catch (IOException | RuntimeException e) {
            extractor.release();
            throw e;
        }
        unit = ByteBuffer.allocateDirect(capacity());
        intervalNs = SECOND_NS / Math.max(1, number(MediaFormat.KEY_FRAME_RATE, DEFAULT_FRAME_RATE));
        extractor.seekTo(fromUs, MediaExtractor.SEEK_TO_PREVIOUS_SYNC);
    }

    int width() {
        return format.getInteger(MediaFormat.KEY_WIDTH);
    }

    int height() {
        return format.getInteger(MediaFormat.KEY_HEIGHT);
    }

    long positionUs() {
        return Math.max(0, extractor.getSampleTime());
    }

    /**
     * Passes on the unit that is due, if any. After a pause it does not catch up. A unit for which
     * the decoder has no room comes again at the next call.
     *
     * @throws IllegalStateException if the decoder failed
     */
    void feed(VideoRenderer renderer) {
        long now = System.nanoTime();
        if (now < dueNs) {
            return;
        }
        if (!readUnit()) {
            extractor.seekTo(0, MediaExtractor.SEEK_TO_PREVIOUS_SYNC);
            return;
        }
        QueueResult result = renderer.queueUnit(unit, extractor.getSampleTime(), 0);
        if (result == QueueResult.FAILED) {
            throw new IllegalStateException(renderer.decoderState().failure.toString());
        }
        if (result != QueueResult.NO_ROOM) {
            first = false;
            extractor.advance();
            dueNs = Math.max(dueNs + intervalNs, now - intervalNs);
        }
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
        throw new IllegalArgumentException("no H.264");
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
        if (size < 0) {
            return false;
        }
        bounds.limit(begin + size);
        bounds.position(0);
        return true;
    }

    private void putParameterSet(String key) {
        ByteBuffer parameterSet = format.getByteBuffer(key);
        if (parameterSet != null) {
            unit.put(parameterSet.duplicate());
        }
    }
}
