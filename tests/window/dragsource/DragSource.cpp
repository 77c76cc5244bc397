// A small window in the corner of the screen, out of which a list of addresses is dragged: the one
// that its standard input holds when it starts. It prints a line "ready", and after each drag what
// has become of it: "taken" or "refused".

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <utility>

namespace {

class Source : public QLabel {
public:
    explicit Source(QByteArray list) : QLabel("drag me"), list_(std::move(list)) {
        setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                       Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setGeometry(0, 0, 80, 40);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!std::exchange(shown_, true)) say("ready");
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() == Qt::NoButton) return;
        auto* carried = new QMimeData;
        carried->setData("text/uri-list", list_);
        auto* drag = new QDrag(this);
        drag->setMimeData(carried);
        const bool taken = drag->exec(Qt::CopyAction | Qt::MoveAction) == Qt::CopyAction;
        // What was taken may be asked for later.
        hide();
        say(taken ? "taken" : "refused");
    }

private:
    void say(const char* word) {
        std::puts(word);
        std::fflush(stdout);
    }

    bool shown_ = false;
    QByteArray list_;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const std::string list{std::istreambuf_iterator<char>(std::cin), {}};
    Source source(QByteArray::fromStdString(list));
    source.show();
    return QApplication::exec();
}
