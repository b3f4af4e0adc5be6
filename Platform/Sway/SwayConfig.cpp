#include "SwayConfig.h"

#include "HotKeys.h"

#include <QtCore/QStringList>

#include <algorithm>
#include <array>
#include <optional>
#include <xkbcommon/xkbcommon.h>

namespace corvane::sway {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostIncludes = 20; // one inside another
constexpr int mostReplacements = 100; // a variable may name itself

struct ModifierName {
    QLatin1StringView name;
    quint32 modifier;
};

constexpr std::array modifierNames{
    ModifierName{"shift"_L1, HotKeys::shiftKey},
    ModifierName{"ctrl"_L1, HotKeys::controlKey},
    ModifierName{"control"_L1, HotKeys::controlKey},
    ModifierName{"alt"_L1, HotKeys::optionKey},
    ModifierName{"mod1"_L1, HotKeys::optionKey},
    ModifierName{"super"_L1, HotKeys::cmdKey},
    ModifierName{"mod4"_L1, HotKeys::cmdKey},
};

/// Words by spaces; what stands in quotation marks stays together.
QStringList wordsOf(const QString &line)
{
    QStringList words;
    QString word;
    QChar quote;
    for (const QChar each : line) {
        if (!quote.isNull() || each == u'"' || each == u'\'') {
            if (each == quote)
                quote = {};
            else if (quote.isNull())
                quote = each;
            word += each;
        } else if (!each.isSpace()) {
            word += each;
        } else if (!word.isEmpty()) {
            words << std::exchange(word, {});
        }
    }
    if (!word.isEmpty())
        words << word;
    return words;
}

class ConfigReader
{
public:
    explicit ConfigReader(const ReadIncluded &readIncluded) : m_readIncluded(readIncluded) { }

    void read(const QByteArray &text, int depth)
    {
        QStringList blocks;
        for (const QString &line : lines(text)) {
            QStringList words = wordsOf(replaceVariables(line));
            if (words.isEmpty() || words.first().startsWith(u'#'))
                continue;
            if (words.last() == u"}") {
                if (!blocks.isEmpty())
                    blocks.removeLast();
                continue;
            }
            // What stands in a block belongs to its head; a mode's bindings are not the default's.
            if (words.last() == u"{") {
                words.removeLast();
                blocks << words.join(u' ');
                continue;
            }
            readCommand(wordsOf((blocks + words).join(u' ')), depth);
        }
    }

    [[nodiscard]] const QList<Binding> &bindings() const { return m_bindings; }

private:
    /// With those joined that end in a backslash.
    [[nodiscard]] static QStringList lines(const QByteArray &text)
    {
        return QString::fromUtf8(text).replace(u"\\\n"_s, QString()).split(u'\n');
    }

    [[nodiscard]] QString replaceVariables(QString line) const
    {
        if (!line.contains(u'$') || line.trimmed().startsWith("set "_L1))
            return line;
        for (int i = 0; i < mostReplacements; ++i) {
            const QString before = line;
            // The longest name first, since one may begin with another.
            for (const QString &name : m_names)
                line.replace(name, m_variables.value(name));
            if (line == before)
                break;
        }
        return line;
    }

    void readCommand(const QStringList &words, int depth)
    {
        const QString &command = words.first();
        if (command == "set"_L1 && words.size() >= 3) {
            m_variables.insert(words.at(1), words.sliced(2).join(u' '));
            m_names = m_variables.keys();
            std::ranges::sort(m_names, std::greater(), &QString::size);
        } else if (command == "include"_L1 && words.size() >= 2 && depth < mostIncludes) {
            for (const QByteArray &text : m_readIncluded(words.sliced(1).join(u' ')))
                read(text, depth + 1);
        } else if (command == "bindsym"_L1 || command == "bindcode"_L1) {
            readBinding(words.sliced(1), command == "bindcode"_L1);
        }
    }

    void readBinding(QStringList words, bool isCode)
    {
        while (!words.isEmpty() && words.first().startsWith("--"_L1))
            words.removeFirst();
        if (words.size() < 2)
            return;
        Binding binding;
        for (const QString &part : words.first().split(u'+')) {
            const auto modifier =
                std::ranges::find_if(modifierNames, [&](const ModifierName &each) {
                    return part.compare(each.name, Qt::CaseInsensitive) == 0;
                });
            if (modifier != modifierNames.end())
                binding.modifiers |= modifier->modifier;
            else if (isCode)
                binding.keycode = part.toUInt();
            else
                binding.keysym = xkb_keysym_to_lower(
                    xkb_keysym_from_name(part.toUtf8().constData(), XKB_KEYSYM_CASE_INSENSITIVE));
        }
        binding.command = words.sliced(1).join(u' ');
        if (binding.keycode != 0 || binding.keysym != 0)
            m_bindings << binding;
    }

    const ReadIncluded &m_readIncluded;
    QHash<QString, QString> m_variables;
    QStringList m_names;
    QList<Binding> m_bindings;
};

} // namespace

QList<Binding> bindingsIn(const QByteArray &text, const ReadIncluded &readIncluded)
{
    ConfigReader reader(readIncluded);
    reader.read(text, 0);
    return reader.bindings();
}

} // namespace corvane::sway
