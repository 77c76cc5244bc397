// The reference of the start-up bench: an empty main window with as many child widgets as the
// program's, and, when asked by the argument "gl", an empty OpenGL picture among them.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QWindow>
#include <memory>
#include <string_view>

namespace {

constexpr int childWidgets = 220;

/// A native OpenGL area that shows one black frame.
class EmptyPicture : public QWindow {
public:
    EmptyPicture() { setSurfaceType(OpenGLSurface); }

    void showFrame() {
        context_ = std::make_unique<QOpenGLContext>();
        create();
        if (!context_->create() || !context_->makeCurrent(this)) return;
        context_->functions()->glClear(GL_COLOR_BUFFER_BIT);
        context_->swapBuffers(this);
    }

private:
    std::unique_ptr<QOpenGLContext> context_;
};

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QMainWindow window;
    auto* centre = new QWidget;
    window.setCentralWidget(centre);
    for (int i = 0; i < childWidgets; ++i) {
        auto* child = new QLabel(centre);
        child->setGeometry(i % 20 * 40, i / 20 * 20, 38, 18);
    }
    const bool picture = count > 1 && std::string_view(arguments[1]) == "gl";
    auto* area = picture ? new EmptyPicture : nullptr;
    if (area) QWidget::createWindowContainer(area, centre)->setGeometry(300, 300, 600, 300);
    window.setWindowTitle("Empty");
    window.showMaximized();
    if (area) area->showFrame();
    return QApplication::exec();
}
