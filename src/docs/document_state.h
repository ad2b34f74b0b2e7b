// State of the document subsystem: open buffers, recent files, dialog memory.
#pragma once

namespace ruvo {

struct DocumentState {
};

} // namespace ruvo
