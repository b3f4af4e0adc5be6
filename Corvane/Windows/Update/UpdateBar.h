#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QProgressBar>

#include <optional>

namespace corvane {

/// How far something has come; busy while that is unknown.
class UpdateBar final : public QProgressBar
{
    Q_OBJECT

public:
    explicit UpdateBar(const QString &name, QWidget *parent = nullptr);

    /// From 0 to 1.
    void setShare(std::optional<double> share);

private:
    QVariantAnimation m_busy;
};

} // namespace corvane
