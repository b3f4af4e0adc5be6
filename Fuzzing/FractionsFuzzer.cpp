#include "Require.h"
#include "WindowLayout.h"

#include <cmath>

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(bytes), qsizetype(size));

    const auto fractions = WindowLayout::parseFractions(text);

    if (!fractions)
        return 0;
    double sum = 0;
    for (const double fraction : *fractions) {
        require(fraction > 0);
        sum += fraction;
    }
    require(std::abs(sum - 1) < 1e-9);
    WindowLayout layout;
    layout.setSplit(0, *fractions, CutLines::vertical);
    require(layout.panes.size() == fractions->size());
    return 0;
}
