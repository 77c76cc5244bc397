#include <QFileInfo>
#include <QMimeDatabase>
#include <cstdio>

/// What desktops take each file for, by its content and its name: a line each.
int main(int argc, char** argv) {
    const QMimeDatabase types;
    for (int i = 1; i < argc; ++i)
        std::puts(types.mimeTypeForFile(QFileInfo(argv[i])).name().toUtf8().constData());
    return 0;
}
