#include "Decoding.h"
#include "Require.h"
#include "WindowLayout.h"

#include <QtCore/QJsonDocument>

using namespace corvane;

namespace {

using Layouts = LossyArray<WindowLayout>;

QJsonValue parsed(const QByteArray &file)
{
    const QJsonDocument document = QJsonDocument::fromJson(file);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

/// Whatever was read, damage dropped, is written and read again as the same.
void requireSurvivesItsFile(const QList<WindowLayout> &layouts)
{
    DecodeProblems problems;
    const QByteArray file = QJsonDocument(encode(layouts)).toJson();

    const auto again = decode<Layouts>(parsed(file), problems);

    require(again && again->elements == layouts && problems.count == 0);
}

/// The operations of the editor on panes that no editor made.
void edit(WindowLayout &layout)
{
    constexpr double minimum = 0.05;
    const Pane first = layout.panes.value(0);
    layout.split(first.id, CutLines::vertical);
    for (const double edge : layout.edges(first.display).vertical)
        layout.moveEdge(first.display, CutLines::vertical, edge, 0.4, minimum);
    layout.setGridBand(first.display, CutLines::vertical, 0, 0.3, minimum);
    layout.addGridBand(first.display, CutLines::horizontal, minimum);
    layout.removeGridBand(first.display, CutLines::vertical);
    layout.remove(first.id);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(bytes), qsizetype(size));
    DecodeProblems problems;

    auto layouts = decode<Layouts>(parsed(file), problems);

    if (!layouts)
        return 0;
    requireSurvivesItsFile(layouts->elements);
    for (WindowLayout &layout : layouts->elements)
        edit(layout);
    requireSurvivesItsFile(layouts->elements);
    return 0;
}
