#include "output/PrinterCorrection.h"

#include <string>

#include "common/NumberText.h"

namespace velna {

Outcome readCorrection(std::string_view x, std::string_view y, PrinterCorrection& correction) {
    PrinterCorrection read;
    for (const auto& [text, factor] : {std::pair{x, &read.x}, std::pair{y, &read.y}}) {
        const auto number = wholeNumber(text);
        if (!number || *number < leastCorrection || *number > largestCorrection) {
            return Outcome::failed(
                '"' + std::string(text) + "\" is no correction of a printer: a number from " +
                numberText(leastCorrection) + " to " + numberText(largestCorrection) + '.');
        }
        *factor = *number;
    }
    correction = read;
    return {};
}

}  // namespace velna
