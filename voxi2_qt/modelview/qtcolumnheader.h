#pragma once

#include <QHeaderView>

namespace VOXI {

/// The header above the columns, which knows when it is the user who changes it.
class QtColumnHeader final : public QHeaderView
{
public:
    explicit QtColumnHeader(QWidget* parent);

    /// Whether what happens now is done with the pointer: not by the program, nor in a loop that a
    /// handler has opened meanwhile.
    bool isUserActing() const;

    /// Whether Qt decides how wide the section is.
    bool isFlexible(int section) const;

protected:
    bool viewportEvent(QEvent* event) override;

private:
    int m_userLevel = -1; // the loop level at which the pointer's event is handled
};

} // namespace VOXI
