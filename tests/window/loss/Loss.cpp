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

/// Qt creates it by its key and hands the text after the colon over: "velnaloss:1500" takes the
/// window away after 1500 ms.
class LossPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "loss.json")

public:
    QObject* create(const QString&, const QString& delay) override {
        auto* timer = new QTimer(qGuiApp);
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, timer, loseNativeWindows);
        timer->start(delay.toInt());
        return timer;
    }
};

#include "Loss.moc"
