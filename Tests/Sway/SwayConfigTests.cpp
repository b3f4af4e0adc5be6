#include "HotKeys.h"
#include "SwayConfig.h"

#include <gtest/gtest.h>
#include <ostream>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace corvane::sway {

using namespace Qt::StringLiterals;

void PrintTo(const Binding &binding, std::ostream *stream)
{
    *stream << binding.modifiers << '+' << binding.keycode << '/' << binding.keysym << ' '
            << qPrintable(binding.command);
}

namespace {

constexpr quint32 super = HotKeys::cmdKey;
constexpr quint32 controlAlt = HotKeys::controlKey | HotKeys::optionKey;

} // namespace

TEST(SwayConfigTests, everyBindingOfTheDefaultModeIsFoundHoweverItIsWritten)
{
    using Bindings = QList<Binding>;
    const Binding terminal{super, 0, XKB_KEY_Return, u"exec foot"_s};
    struct Case {
        const char *name;
        const char *text;
        Bindings bindings;
    };
    const Case cases[]{
        {"plain", "bindsym Mod4+Return exec foot", {terminal}},
        {"any case", "bindsym SUPER+return exec foot", {terminal}},
        {"options", "bindsym --to-code --no-warn Mod4+Return exec foot", {terminal}},
        {"by code", "bindcode Ctrl+mod1+36 exec foot", {{controlAlt, 36, 0, u"exec foot"_s}}},
        {"capital letter", "bindsym Control+Alt+D kill", {{controlAlt, 0, XKB_KEY_d, u"kill"_s}}},
        {"variables",
            "set $mod Mod4\nset $modkey $mod\nset $term exec foot\n"
            "bindsym $modkey+Return $term",
            {terminal}},
        {"a variable of itself", "set $a $a\nbindsym $a+Return exec foot",
            {{0, 0, XKB_KEY_Return, u"exec foot"_s}}},
        {"a block", "bindsym {\n  Mod4+Return exec foot\n}\nbindsym --locked {\nMod4+q kill\n}",
            {terminal, {super, 0, XKB_KEY_q, u"kill"_s}}},
        {"another mode",
            "mode \"resize\" {\n  bindsym Left resize shrink width\n}\n"
            "bindsym Mod4+Return exec foot",
            {terminal}},
        {"a line that goes on", "bindsym Mod4+Return \\\n  exec foot", {terminal}},
        {"quotation marks", "bindsym Mod4+Return exec \"foot  -e\"",
            {{super, 0, XKB_KEY_Return, u"exec \"foot  -e\""_s}}},
        {"comments", "# bindsym Mod4+a kill\n  #bindsym Mod4+b kill", {}},
        {"no key", "bindsym Mod4 kill\nbindsym\nbindsym Mod4+Nonsense kill\nbindcode Mod4+x kill",
            {}},
        {"unbalanced", "}\n}\nbindsym Mod4+Return exec foot\nmode x {\nbindsym a kill", {terminal}},
    };
    for (const auto &[name, text, bindings] : cases)
        EXPECT_EQ(bindingsIn(text, [](const QString &) { return QList<QByteArray>(); }), bindings)
            << name;
}

TEST(SwayConfigTests, includedFilesAreReadInTheirPlaceAndOneThatIncludesItselfEnds)
{
    const auto read = [](const QString &pattern) {
        return QList<QByteArray>{pattern == u"~/keys" ? "set $mod Mod4" : "include loop"};
    };
    EXPECT_EQ(bindingsIn("include ~/keys\ninclude loop\nbindsym $mod+q kill", read),
        (QList{Binding{super, 0, XKB_KEY_q, u"kill"_s}}));
}

} // namespace corvane::sway
