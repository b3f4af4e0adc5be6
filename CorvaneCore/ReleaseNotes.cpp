#include "ReleaseNotes.h"

#include <algorithm>
#include <array>
#include <optional>

namespace corvane::ReleaseNotes {

using namespace Qt::StringLiterals;

namespace {

bool isWord(QChar character)
{
    return character.isLetterOrNumber() || character == u'_';
}

/// Finds the next of something. What was missing once is not looked for again, or a page of nothing
/// but openings would take time with the square of its length.
class Finder final
{
public:
    Finder(QStringView text, QStringView wanted) : m_text(text), m_wanted(wanted) { }

    /// Where it stands, not before `from`, which never goes back; negative when it does not.
    [[nodiscard]] qsizetype next(qsizetype from)
    {
        if (m_mayBeThere && m_found < from) {
            m_found = m_text.indexOf(m_wanted, from, Qt::CaseInsensitive);
            m_mayBeThere = m_found >= 0;
        }
        return m_found;
    }

private:
    QStringView m_text;
    QStringView m_wanted;
    qsizetype m_found = -1;
    bool m_mayBeThere = true;
};

bool isOneOf(QStringView name, std::initializer_list<QStringView> names)
{
    return std::ranges::any_of(
        names, [name](QStringView each) { return name.compare(each, Qt::CaseInsensitive) == 0; });
}

bool isBold(QStringView name)
{
    return isOneOf(name, {u"b", u"strong"});
}

QStringView withoutLeadingSpace(QStringView text)
{
    const auto *begin = std::ranges::find_if_not(text, [](QChar each) { return each.isSpace(); });
    return text.mid(begin - text.begin());
}

/// Between "<" and ">".
struct Tag {
    QStringView name;
    bool closes = false;
};

/// Nothing for what only looks like a tag, such as "a < b > c".
std::optional<Tag> tagOf(QStringView inside)
{
    if (inside.startsWith(u'!') || inside.startsWith(u'?'))
        return Tag{};
    QStringView rest = withoutLeadingSpace(inside);
    const bool closes = rest.startsWith(u'/');
    if (closes)
        rest = withoutLeadingSpace(rest.mid(1));
    const QStringView name = rest.first(std::ranges::find_if_not(rest, isWord) - rest.begin());
    const bool isTight = inside.startsWith(u'/') || (!inside.isEmpty() && inside[0].isLetter());
    const bool isTag = isBold(name) || (isTight && !name.isEmpty());
    return isTag ? std::optional(Tag{name, closes}) : std::nullopt;
}

struct Entity {
    QStringView name;
    char16_t character;
};

constexpr std::array entities{Entity{u"amp", u'&'}, Entity{u"lt", u'<'}, Entity{u"gt", u'>'},
    Entity{u"quot", u'"'}, Entity{u"apos", u'\''}, Entity{u"nbsp", u' '}, Entity{u"hellip", u'…'},
    Entity{u"ndash", u'–'}, Entity{u"mdash", u'—'}, Entity{u"lsquo", u'‘'}, Entity{u"rsquo", u'’'},
    Entity{u"ldquo", u'“'}, Entity{u"rdquo", u'”'}, Entity{u"times", u'×'}, Entity{u"rarr", u'→'}};

/// What stands for "&name;"; nothing for what is none.
QString character(QStringView name)
{
    if (name.startsWith(u'#')) {
        const bool isHex = name.mid(1).startsWith(u'x', Qt::CaseInsensitive);
        bool isNumber = false;
        const uint code = name.mid(isHex ? 2 : 1).toUInt(&isNumber, isHex ? 16 : 10);
        const bool isScalar = code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
        return isNumber && isScalar
            ? QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1)
            : QString();
    }
    const auto *found = std::ranges::find(entities, name, &Entity::name);
    return found == entities.end() ? QString() : QString(QChar(found->character));
}

/// Takes the inner text of an element apart.
class ItemReader final
{
public:
    [[nodiscard]] Item read(QStringView inner)
    {
        Finder tagEnd(inner, u">");
        for (qsizetype at = 0; at < inner.size();) {
            const qsizetype end = inner[at] == u'<' ? tagEnd.next(at) : -1;
            const auto tag =
                end > at ? tagOf(inner.mid(at + 1, end - at - 1)) : std::optional<Tag>();
            if (tag) {
                take(*tag);
                at = end + 1;
            } else if (inner[at] == u'&') {
                at = takeEntity(inner, at);
            } else {
                put(inner[at++]);
            }
        }
        return std::exchange(m_item, {});
    }

private:
    void take(const Tag &tag)
    {
        if (isBold(tag.name))
            m_isBold = !tag.closes;
        else if (isOneOf(tag.name, {u"br", u"p", u"div", u"ul", u"ol", u"li"}))
            put(u' ');
    }
    /// Where the text goes on.
    qsizetype takeEntity(QStringView inner, qsizetype at)
    {
        constexpr qsizetype longest = 10;
        const qsizetype length = inner.mid(at + 1, longest).indexOf(u';');
        const QString text = length > 0 ? character(inner.mid(at + 1, length)) : QString();
        if (text.isEmpty()) {
            put(u'&');
            return at + 1;
        }
        for (const QChar each : text)
            put(each);
        return at + length + 2;
    }
    // Directions for bidirectional text would turn the rest of the line round, and the screen has no use
    // for other controls, either.
    void put(QChar character)
    {
        if (character.isSpace()) {
            m_hasSpace = !m_item.isEmpty();
            return;
        }
        if (!character.isPrint() && !character.isSurrogate())
            return;
        if (m_item.isEmpty() || m_item.last().isBold != m_isBold)
            m_item << Run{{}, m_isBold};
        if (std::exchange(m_hasSpace, false))
            m_item.last().text += u' ';
        m_item.last().text += character;
    }

    Item m_item;
    bool m_isBold = false;
    bool m_hasSpace = false; ///< before the next character
};

QString plain(const Item &item)
{
    QString text;
    for (const Run &run : item)
        text += run.text;
    return text;
}

/// An element that is read. The page's closing tags of this name are found as they are needed.
struct Element {
    Element(QStringView text, QStringView elementName, QStringView closing)
        : name(elementName), closings(text, closing), closingSize(closing.size())
    {
    }

    /// Whether a tag of it opens after that "<".
    [[nodiscard]] bool opens(QStringView text, qsizetype at) const
    {
        const QStringView after = text.mid(at + 1, name.size() + 1);
        return after.startsWith(name, Qt::CaseInsensitive)
            && (after.size() == name.size() || !isWord(after.back()));
    }

    QStringView name;
    Finder closings;
    qsizetype closingSize;
};

void add(QList<Section> &sections, bool isHeading, QStringView inner)
{
    const Item item = ItemReader().read(inner);
    if (isHeading)
        sections << Section{plain(item)};
    else if (!item.isEmpty()) {
        if (sections.isEmpty())
            sections << Section{};
        sections.last().items << item;
    }
}

} // namespace

QList<Section> parse(const QByteArray &page)
{
    const QString text = QString::fromUtf8(page.left(sizeLimit));
    Finder tagEnds(text, u">");
    Element heading(text, u"h2", u"</h2>");
    Element item(text, u"li", u"</li>");
    QList<Section> sections;
    for (qsizetype at = 0; (at = text.indexOf(u'<', at)) >= 0; ++at) {
        const bool isHeading = heading.opens(text, at);
        if (!isHeading && !item.opens(text, at))
            continue;
        Element &element = isHeading ? heading : item;
        const qsizetype begin = tagEnds.next(at) + 1;
        const qsizetype end = begin > 0 ? element.closings.next(begin) : -1;
        if (end < 0)
            continue;
        add(sections, isHeading, QStringView(text).mid(begin, end - begin));
        at = end + element.closingSize - 1;
    }
    // A heading alone says nothing.
    sections.removeIf([](const Section &section) { return section.items.isEmpty(); });
    return sections;
}

} // namespace corvane::ReleaseNotes
