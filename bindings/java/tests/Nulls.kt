import java.nio.ByteBuffer
import org.vornrenderer.*

fun nulls(renderer: VideoRenderer, builder: VideoRenderer.Builder, unit: ByteBuffer?) {
    val maskLayout: PixelLayout? = renderer.maskLayout()
    val failure: RendererException.Reason? = renderer.decoderState().failure
    val mask: PixelLayout = renderer.maskLayout() // refused
    val reason: RendererException.Reason = renderer.decoderState().failure // refused
    renderer.draw(null, null)
    renderer.drawTexture(1, null)
    renderer.queueUnit(unit) // refused
    renderer.queueUnit(unit, 0, VideoRenderer.UNIT_CONFIG) // refused
    builder.mask(null, 1, 1) // refused
    builder.destination(1, null) // refused
    VideoRenderer.Builder(null, 1, 1) // refused
    println("$maskLayout $failure $mask $reason")
}
