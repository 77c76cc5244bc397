#include <QImageReader>
#include <QImageWriter>
#include <string_view>

/// A program that does nothing, with the libraries of the real one: what every call costs before
/// its first line. With the word "pictures" also those that the toolkit loads, one for each kind
/// of picture, as soon as the first one is read.
int main(int argc, char** argv) {
    if (argc > 1 && std::string_view(argv[1]) == "pictures")
        return QImageReader::supportedImageFormats().isEmpty();
    return 0;
}
