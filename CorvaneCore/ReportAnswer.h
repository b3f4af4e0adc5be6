#pragma once

#include "Expected.h"
#include "SendFailure.h"

#include <QtCore/QByteArray>

#include <optional>

namespace corvane {

/// What the program that sends reports says of one, on one line: the report's number or the failure.
struct ReportAnswer {
    expected<QString, SendFailure> value;

    [[nodiscard]] QByteArray toLine() const;
    /// Nothing for what is no such line.
    [[nodiscard]] static std::optional<ReportAnswer> fromLine(const QByteArray &line);
    /// Of what a server answered.
    [[nodiscard]] static ReportAnswer ofServer(const QByteArray &body);

    bool operator==(const ReportAnswer &) const = default;
};

} // namespace corvane
