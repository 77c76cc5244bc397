// The reference of the start-up bench: an empty main window with as many child widgets as the
// program's, and, when asked by the argument "gl", an empty OpenGL picture among them.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QOpenGLContext>
#include <QWindow>
#include <memory>
#include <string_view>

namespace {

constexpr int childWidgets = 220;

/// A native OpenGL area that shows one frame: black, or with a lit triangle.
class EmptyPicture : public QWindow {
public:
    explicit EmptyPicture(bool lit) : lit_(lit) {
        setSurfaceType(OpenGLSurface);
        if (!lit) return;
        QSurfaceFormat format;
        format.setDepthBufferSize(24);
        format.setSamples(4);
        setFormat(format);
    }

    void showFrame() {
        context_ = std::make_unique<QOpenGLContext>();
        context_->setFormat(requestedFormat());
        create();
        if (!context_->create() || !context_->makeCurrent(this)) return;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        if (lit_) drawTriangle();
        context_->swapBuffers(this);
    }

private:
    static void drawTriangle() {
        for (const GLenum state : {GL_DEPTH_TEST, GL_LIGHTING, GL_LIGHT0, GL_NORMALIZE})
            glEnable(state);
        glNewList(1, GL_COMPILE_AND_EXECUTE);
        glBegin(GL_TRIANGLE_STRIP);
        glNormal3d(0, 0, 1);
        glVertex3d(-1, -1, 0);
        glVertex3d(1, -1, 0);
        glVertex3d(0, 1, 0);
        glEnd();
        glEndList();
    }

    std::unique_ptr<QOpenGLContext> context_;
    bool lit_;
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
    const std::string_view picture = count > 1 ? arguments[1] : "";
    auto* area = picture.empty() ? nullptr : new EmptyPicture(picture == "lit");
    if (area) QWidget::createWindowContainer(area, centre)->setGeometry(300, 300, 600, 300);
    window.setWindowTitle("Empty");
    window.showMaximized();
    if (area) area->showFrame();
    return QApplication::exec();
}
