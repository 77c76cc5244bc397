#pragma once

#include <functional>
#include <string>
#include <vector>

#include "preview/RenderContext.h"
#include "support/GlTape.h"

namespace velna::test {

/// A picture area that records on the tape what is asked of it, and makes contexts that the tape
/// knows.
class FakeRenderContext : public RenderContext {
public:
    double areaWidth = 1014;
    double areaHeight = 336;
    double pixelRatio = 1;
    double screenAreaWidth = 1920;
    double screenAreaHeight = 1080;
    bool formatFound = true;
    bool creationWorks = true;
    /// The window events of a turn.
    std::function<void()> events = [] {};
    /// What the pointer was told while pictures were drawn, in order.
    std::vector<bool> busy;
    /// What happens when a frame is shown.
    std::function<void()> shown = [] {};

    bool chooseFormat() override {
        GlTape::add({"chooseFormat"});
        return formatFound;
    }
    bool create() override {
        GlTape::add({"create"});
        GlTape::hasContext = creationWorks;
        return creationWorks;
    }
    void destroy() override {
        GlTape::add({"destroy"});
        GlTape::hasContext = false;
    }
    void swapBuffers() override {
        GlTape::add({"SwapBuffers"});
        shown();
    }
    void setBusy(bool on) override { busy.push_back(on); }
    double width() const override { return full_ ? screenAreaWidth : areaWidth; }
    double height() const override { return full_ ? screenAreaHeight : areaHeight; }
    double devicePixelRatio() const override { return pixelRatio; }
    void fatal(const std::string& text) override { GlTape::add({"fatal", text}); }
    void setFullScreen(bool on) override {
        GlTape::add({"fullScreen", on});
        full_ = on;
    }
    double screenWidth() const override { return screenAreaWidth; }
    double screenHeight() const override { return screenAreaHeight; }
    void setFlyingInfo(bool visible, const std::string& text) override {
        GlTape::add({"FlyingInfo", visible, text});
    }
    void pumpEvents() override { events(); }

private:
    bool full_ = false;
};

}  // namespace velna::test
