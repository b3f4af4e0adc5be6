#pragma once

#include "KeyCapture.h"
#include "KeyCombo.h"

#include <QtWidgets/QAbstractButton>

namespace corvane {

/// Shows a shortcut, and records another one. Its owner decides whether it records, since one row
/// at a time may.
class ShortcutRecorder final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `title` names what the shortcut is for.
    explicit ShortcutRecorder(const QString &title, QWidget *parent = nullptr);

    std::function<void()> onBegin;
    std::function<void(std::optional<KeyCombo> combo)> onRecord; ///< absent: clear the shortcut
    std::function<void()> onCancel;

    void setCombo(const std::optional<KeyCombo> &combo);
    void setRecording(bool isRecording);
    [[nodiscard]] bool isRecording() const { return m_isRecording; }
    /// Whether another program holds the keys.
    void setTaken(bool isTaken, const QString &holder = {});

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *) override;
    void paintEvent(QPaintEvent *) override;

private:
    void take(quint16 keyCode, quint64 modifiers);
    void showHeld(quint64 modifiers);
    void describe();
    void placeClear();
    [[nodiscard]] QString prompt() const;
    void paintRecording(QPainter &painter, const QRectF &field) const;

    QString m_title;
    std::optional<KeyCombo> m_combo;
    bool m_isRecording = false;
    bool m_isTaken = false;
    QString m_holder; ///< empty where it is unknown
    bool m_refused = false; ///< the last keys had modifiers, but not one that a shortcut needs
    quint64 m_held = 0;
    KeyCapture m_capture{*this};
    QAbstractButton *m_clear;
};

} // namespace corvane
