#pragma once

#include "Compositor.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

#include <functional>

namespace corvane::wayland {

/// The windows that the compositor has told of, each from its first sight until it is gone, and what
/// was read within one operation.
class ToplevelRegistry final : public QObject
{
    Q_OBJECT

public:
    explicit ToplevelRegistry(Compositor &compositor);

    [[nodiscard]] Compositor &compositor() const { return m_compositor; }

    /// Between the two, a read shares the answer of the one before. They nest.
    void beginOperation()
    {
        if (!isFresh())
            outdate();
        ++m_operations;
    }
    void endOperation() { --m_operations; }
    [[nodiscard]] bool isInOperation() const { return m_operations > 0; }
    /// The next read asks the compositor again, since it was told to change something.
    void outdate() { m_read.reset(); }

    /// The windows as they are now; within an operation, as they were read in it. Questions that follow
    /// each other at once share the answer, too.
    [[nodiscard]] expected<Desk, AXError> desk(Compositor::Scope scope);
    /// One of them. Errors: those of a read, and `invalidUIElement` for one that is gone.
    [[nodiscard]] expected<Toplevel, AXError> toplevel(const WindowElement &window);

    /// As it was told last; null for one that is gone, or was never told.
    [[nodiscard]] const Toplevel *known(const WindowElement &window) const;
    [[nodiscard]] QList<WindowElement> all() const { return m_known.keys(); }
    /// What a window was called before.
    [[nodiscard]] QStringList formerNames(const WindowElement &window) const;

    /// Runs the action soon, from the event loop, in the order of all notices.
    void defer(std::function<void()> action);

Q_SIGNALS:
    // Sent from inside a read: who tells others must defer that.
    void appeared(const corvane::wayland::Toplevel &window);
    void changed(
        const corvane::wayland::Toplevel &window, const corvane::wayland::Toplevel &before);
    void vanished(const corvane::wayland::Toplevel &window);
    /// Which window has the focus now.
    void focusRead(const std::optional<corvane::WindowElement> &window);

private:
    struct Known {
        Toplevel toplevel;
        QStringList formerNames;
    };
    struct Reading {
        Desk desk;
        Compositor::Scope scope;
        Compositor::Time end; ///< of the time for which it holds outside an operation
    };

    /// Whether what was read last may be taken for what is there now.
    [[nodiscard]] bool isFresh() const;

    void refresh();
    void absorb(const Desk &desk, Compositor::Scope scope);
    void meet(const Toplevel &toplevel);

    Compositor &m_compositor;
    QHash<WindowElement, Known> m_known;
    std::optional<Reading> m_read;
    int m_operations = 0;
    bool m_refreshScheduled = false;
};

} // namespace corvane::wayland
