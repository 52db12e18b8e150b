#pragma once

#include "voxi2_qt/controls/qteditarea2.h"

#include <QTextCursor>

#include <utility>

namespace VOXI {

/// A change of the text by the program; in a group one with those before it.
class QtEditArea2::ProgramEdit
{
public:
    ProgramEdit(QtEditArea2& area, const QTextCursor& cursor) : m_cursor(cursor)
    {
        if (area.m_groupDepth > 0 && area.m_isGroupBegun)
            m_cursor.joinPreviousEditBlock();
        else
            m_cursor.beginEditBlock();
    }
    ~ProgramEdit() { end(); }
    ProgramEdit(const ProgramEdit&) = delete;
    ProgramEdit& operator=(const ProgramEdit&) = delete;

    QTextCursor& cursor() noexcept { return m_cursor; }

    /// Has it laid out.
    void end()
    {
        if (std::exchange(m_isOpen, false))
            m_cursor.endEditBlock();
    }

private:
    const QtProgramScope m_scope;
    QTextCursor m_cursor;
    bool m_isOpen = true;
};

/// Input of the user that Qt handles: what comes of it is reported when Qt is done.
class QtEditArea2::UserAct
{
public:
    explicit UserAct(QtEditArea2& area) noexcept : m_area(area) { area.beginUserAct(); }
    ~UserAct() { --m_area.m_userDepth; }
    UserAct(const UserAct&) = delete;
    UserAct& operator=(const UserAct&) = delete;

private:
    const QtReportHold m_hold; // ends last
    QtEditArea2& m_area;
};

} // namespace VOXI
