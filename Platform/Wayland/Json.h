#pragma once

#include <QtCore/QString>

#include <rapidjson/document.h>

#include <span>
#include <string_view>

/// What compositors tell, read leniently: what is not there, or of another type, is empty. RapidJSON reads
/// fifty windows in a tenth of the time that Qt takes, and the user's window waits for that.
namespace corvane::wayland {

using Json = rapidjson::Value;

[[nodiscard]] inline const Json &at(const Json &value, std::string_view name)
{
    static const Json nothing;
    if (!value.IsObject())
        return nothing;
    const auto found = value.FindMember(
        Json(rapidjson::StringRef(name.data(), static_cast<rapidjson::SizeType>(name.size()))));
    return found == value.MemberEnd() ? nothing : found->value;
}

[[nodiscard]] inline std::span<const Json> itemsOf(const Json &value)
{
    return value.IsArray() ? std::span(value.Begin(), value.Size()) : std::span<const Json>();
}

[[nodiscard]] inline double numberOf(const Json &value)
{
    return value.IsNumber() ? value.GetDouble() : 0;
}

[[nodiscard]] inline qint64 integerOf(const Json &value)
{
    return value.IsInt64() ? value.GetInt64() : 0;
}

[[nodiscard]] inline std::string_view textOf(const Json &value)
{
    return value.IsString() ? std::string_view(value.GetString(), value.GetStringLength())
                            : std::string_view();
}

[[nodiscard]] inline QString stringOf(const Json &value)
{
    const std::string_view text = textOf(value);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace corvane::wayland
