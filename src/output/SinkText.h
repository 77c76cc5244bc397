#pragma once

#include "common/TextSink.h"
#include "output/SolidWriters.h"

namespace velna {

/// Text on its way into a file of solids.
class SinkText : public TextSink {
public:
    explicit SinkText(ByteSink& file) : file_(file) {}
    /// Hands on what is left.
    void finish() { flush(); }

private:
    void flush() override {
        file_.append(buffer());
        buffer().clear();
    }

    ByteSink& file_;
};

}  // namespace velna
