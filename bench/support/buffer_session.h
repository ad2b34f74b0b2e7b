// A fresh editor on a FakeHost, installed for one benchmark, with one buffer made from text.
#pragma once

#include <memory>
#include <string>

#include "buffer_builder.h"
#include "engine/editor.h"
#include "fake_host.h"

namespace ruvo {

struct BufferSession {
    FakeHost host;
    Editor editor{host};
    std::unique_ptr<TestBuffer> buffer;

    BufferSession() { InstallEditor(&editor); }
    ~BufferSession() {
        buffer.reset(); // released while the editor is still installed
        InstallEditor(nullptr);
    }
    BufferSession(const BufferSession&) = delete;
    BufferSession& operator=(const BufferSession&) = delete;

    void Open(const std::string& text) { buffer = std::make_unique<TestBuffer>(text); }
    EditBuffer& Buffer() { return **buffer; }
};

} // namespace ruvo
