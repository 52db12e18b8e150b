#pragma once

#include "../kernel/toolkit.h"
#include "voxi2/controls/vxeditarea2.h"

#include <QInputMethodEvent>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

#include <gtest/gtest.h>
#include <string>

namespace VOXI {

inline std::wstring lines(int count)
{
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? L"\nline " : L"line ") + std::to_wstring(i);
    return text;
}

class EditArea : public testing::Test
{
protected:
    EditArea()
    {
        m_area.resize({400, 300});
        m_area.show();
        m_area.setFocus();
        turn();
    }

    QTextEdit& edit() const { return dynamic_cast<QTextEdit&>(*qt(m_area)); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(&edit(), key, modifiers);
        turn();
    }
    void type(const char* text) const
    {
        QTest::keyClicks(&edit(), QString::fromLatin1(text));
        turn();
    }
    void compose(const QString& shown, const QString& committed = {}) const
    {
        QInputMethodEvent event(shown, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(&edit(), &event);
        turn();
    }
    int laidOut() const
    {
        int count = 0;
        for (QTextBlock block = edit().document()->begin(); block.isValid(); block = block.next())
            count += block.layout()->lineCount() > 0;
        return count;
    }
    bool isCursorInSight() const
    {
        return edit().viewport()->rect().contains(edit().cursorRect().center());
    }

    VXEditArea2 m_area;
    Log<VXEditAreaTextEvent2> m_edited{m_area.textEdited()};
    Log<VXEditCursorEvent2> m_moved{m_area.cursorMoved()};
    Log<VXEditSelectionEvent2> m_selected{m_area.selectionChanged()};
    Log<VXEditAreaModifiedEvent2> m_modified{m_area.modifiedChanged()};
    Log<VXEditAreaScrollEvent2> m_scrolled{m_area.scrolled()};
};

} // namespace VOXI
