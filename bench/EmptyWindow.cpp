// The reference of the start-up bench: a main window with as many child widgets of each kind as the
// program has at its start, as many of them shown, and nothing behind them. With the argument "gl"
// an empty OpenGL picture of the program's size and format is among them.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QOpenGLContext>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QToolButton>
#include <QWindow>
#include <memory>

namespace {

constexpr QRect picturePlace(191, 58, 1079, 463);  // the program's, on 1280 x 1024

/// A native OpenGL area that shows one black frame.
class EmptyPicture : public QWindow {
public:
    EmptyPicture() {
        QSurfaceFormat format;
        format.setRenderableType(QSurfaceFormat::OpenGL);
        format.setDepthBufferSize(16);
        format.setAlphaBufferSize(0);
        format.setSamples(4);
        setSurfaceType(OpenGLSurface);
        setFormat(format);
    }

    void showFrame() {
        context_ = std::make_unique<QOpenGLContext>();
        context_->setFormat(requestedFormat());
        create();
        if (!context_->create() || !context_->makeCurrent(this)) return;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        context_->swapBuffers(this);
    }

private:
    std::unique_ptr<QOpenGLContext> context_;
};

/// `count` widgets of a kind, one beside the other; those with letters carry a word.
template <typename Kind>
void add(QWidget* parent, int count) {
    for (int i = 0; i < count; ++i) {
        auto* child = new Kind(parent);
        child->setGeometry(i % 2 * 90, i / 2 * 24 % 900, 86, 22);
        if constexpr (requires { child->setText(QString()); }) child->setText("Word");
    }
}

void addShown(QWidget* page) {
    add<QWidget>(page, 13);
    add<QLabel>(page, 24);
    add<QLineEdit>(page, 10);
    add<QToolButton>(page, 22);
}

/// On the four pages behind.
void addHidden(QWidget* page) {
    add<QWidget>(page, 59);
    add<QLabel>(page, 77);
    add<QLineEdit>(page, 34);
    add<QToolButton>(page, 10);
    add<QScrollBar>(page, 11);
    add<QSlider>(page, 3);
    add<QCheckBox>(page, 3);
    add<QRadioButton>(page, 5);
    add<QComboBox>(page, 3);
    add<QGroupBox>(page, 3);
    add<QPushButton>(page, 1);
}

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QMainWindow window;
    auto* centre = new QWidget;
    window.setCentralWidget(centre);
    auto* tabs = new QTabWidget(centre);
    tabs->setGeometry(0, 58, 191, 926);
    for (int page = 0; page < 5; ++page) {
        auto* scroll = new QScrollArea;
        auto* content = new QWidget;
        page == 0 ? addShown(content) : page == 1 ? addHidden(content) : void();
        content->resize(180, 900);
        scroll->setWidget(content);
        tabs->addTab(scroll, "Word");
    }
    auto* area = count > 1 ? new EmptyPicture : nullptr;
    if (area) QWidget::createWindowContainer(area, centre)->setGeometry(picturePlace);
    window.setWindowTitle("Empty");
    window.showMaximized();
    if (area) area->showFrame();
    return QApplication::exec();
}
