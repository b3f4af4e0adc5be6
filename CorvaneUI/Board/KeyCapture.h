#pragma once

#include <QtCore/QObject>

#include <functional>
#include <optional>

class QKeyEvent;
class QWidget;

namespace corvane {

/// Takes the keyboard for one control: while it is active, no other control, no shortcut of the
/// window and, where the desktop lets a program have the keyboard alone, no other program sees keys.
class KeyCapture final : public QObject
{
    Q_OBJECT

public:
    /// The control that shows what is pressed. Whatever it does not live through ends the capture.
    explicit KeyCapture(QWidget &host);
    ~KeyCapture() override;

    /// A key that is no modifier went down, by its macOS virtual key code, with what was held then,
    /// as in `KeyCombo::modifiers`.
    std::function<void(quint16 keyCode, quint64 modifiers)> onKey;
    std::function<void(quint64 modifiers)> onModifiers; ///< others are held now
    /// The user turned to something else. Called when the event that says so has been handled.
    std::function<void()> onCancel;

    void setActive(bool isActive);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void take(const QKeyEvent &key);
    [[nodiscard]] bool turnsAway(QObject *watched, const QEvent &event) const;
    void cancelSoon();

    static inline KeyCapture *s_active = nullptr; ///< for whom the keyboard was taken
    QWidget &m_host;
    bool m_isActive = false;
};

} // namespace corvane
