#pragma once

#include "voxi2/controls/vxabstractedit2.h"
#include "voxi2_qt/kernel/qtwidget2.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QString>

namespace VOXI {

/// What the peers of the line edit and the edit area share.
class VOXI2_QT_EXPORT QtAbstractEdit2
    : public QtPeerLevel<VXAbstractEdit2, VXAbstractEdit2Emitters, QtWidget2>
{
public:
    // Requests, in the order of the emitters table
    virtual void doSetText(const std::string& text);
    virtual void doSetTextU(const std::wstring& text);
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual void doSetPlaceholder(const std::string& text);
    virtual void doSetPlaceholderU(const std::wstring& text);
    virtual std::string doGetPlaceholder();
    virtual std::wstring doGetPlaceholderU();
    virtual void doSetReadOnly(bool readOnly) = 0;
    virtual bool doIsReadOnly() = 0;
    virtual void doSetCursorPosition(int position) = 0;
    virtual int doGetCursorPosition() = 0;
    virtual void doSetSelection(TextRange range) = 0;
    virtual TextRange doGetSelection() = 0;
    virtual std::wstring doGetSelectedText() = 0;
    virtual void doSelectAll() = 0;
    virtual void doInsert(const std::wstring& text) = 0;
    virtual void doUndo() = 0;
    virtual void doRedo() = 0;
    virtual bool doIsUndoAvailable() = 0;
    virtual bool doIsRedoAvailable() = 0;
    virtual void doCut() = 0;
    virtual void doCopy() = 0;
    virtual void doPaste() = 0;
    virtual void doimType(const std::wstring& text);

protected:
    QtAbstractEdit2(VXAbstractEdit2* edit, VXAbstractEdit2Emitters* emitters);

    /// Called before the text is asked for or changed: for what has yet to get there.
    virtual void settle() {}

    /// Sets another text for the program.
    virtual void change(const QString& text) = 0;
    virtual QString wholeText() const = 0;
    virtual void changePlaceholder(const QString& text) = 0;
    virtual QString shownPlaceholder() const = 0;

    /// Where it was the user who did it.
    void reportCursor();
    void reportSelection();
};

} // namespace VOXI
