#pragma once

/// Makes glMapBufferRange with GL_MAP_READ_BIT work, in all contexts.
void MapForReading();
