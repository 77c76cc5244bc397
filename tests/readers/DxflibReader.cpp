// Reads a DXF drawing and prints how many lines each layer has as one line of JSON.

#include <iostream>
#include <map>
#include <string>

#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

namespace {

class LineCounter : public DL_CreationAdapter {
public:
    void addLine(const DL_LineData&) override { ++lines[getAttributes().getLayer()]; }

    std::map<std::string, long> lines;
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    LineCounter counter;
    DL_Dxf reader;
    if (!reader.in(arguments[1], &counter)) return 1;
    std::cout << '{';
    const char* separator = "";
    for (const auto& [layer, lines] : counter.lines) {
        std::cout << separator << '"' << layer << "\": " << lines;
        separator = ", ";
    }
    std::cout << "}\n";
}
