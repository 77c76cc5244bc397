#include <QFile>
#include <QGenericPlugin>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace {

void loseNativeWindows() {
    for (QWindow* window : QGuiApplication::allWindows()) {
        if (window->surfaceType() != QSurface::OpenGLSurface || !window->isVisible()) continue;
        window->destroy();
        window->show();
        qWarning("the picture's window was lost");
    }
}

}  // namespace

/// Qt creates it by its key and hands the text after the colon over: "velnaloss:/path" takes the
/// window away when something lies at the path, and what lies there too.
class LossPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "loss.json")

public:
    QObject* create(const QString&, const QString& path) override {
        constexpr int pause = 50;  // milliseconds between two looks
        auto* timer = new QTimer(qGuiApp);
        connect(timer, &QTimer::timeout, timer, [path] {
            if (QFile::remove(path)) loseNativeWindows();
        });
        timer->start(pause);
        return timer;
    }
};

#include "Loss.moc"
