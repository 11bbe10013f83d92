// A GL library that is only found behind the one that looks: two entries, and one of them new.

extern "C" {
void glActiveTexture() {}
void glBindVertexArrayOES() {}
}
