// State of the text engine: the current buffer and the bookmarks.
#pragma once

namespace ruvo {

struct EditBuffer;

struct EngineState {
    EditBuffer* currentBuffer = nullptr;
};

} // namespace ruvo
