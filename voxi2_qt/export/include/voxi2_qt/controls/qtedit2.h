#pragma once

#include "voxi2/controls/vxedit2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QLineEdit>

namespace VOXI {

/// The peer of the line edit.
class VOXI2_QT_EXPORT QtEdit2 : public QtWidget2Shim<VXEdit2, VXEdit2Emitters, QtWidget2, QLineEdit>
{
    Q_OBJECT

public:
    QtEdit2(VXEdit2* object, VXEdit2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters table
    virtual void doSetText(const std::string& text);
    virtual void doSetTextU(const std::wstring& text);
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual void doSetPlaceholder(const std::string& text);
    virtual void doSetPlaceholderU(const std::wstring& text);
    virtual std::string doGetPlaceholder();
    virtual std::wstring doGetPlaceholderU();
    virtual void doSetReadOnly(bool readOnly);
    virtual bool doIsReadOnly();
    virtual void doSetEcho(TextEcho echo);
    virtual TextEcho doGetEcho();
    virtual void doSetAlignment(Alignment alignment);
    virtual Alignment doGetAlignment();
    virtual void doSetFlat(bool flat);
    virtual bool doIsFlat();
    virtual void doSetClearButtonVisible(bool visible);
    virtual bool doIsClearButtonVisible();
    virtual void doAddSideAction(VXAction2* action, EditSide side);
    virtual void doRemoveSideAction(VXAction2* action);
    virtual void doSetMaximumLength(int length);
    virtual int doGetMaximumLength();
    virtual void doSetInputMask(const std::wstring& mask);
    virtual std::wstring doGetInputMask();
    virtual void doSetValidator(const TextValidator& validator);
    virtual TextValidator doGetValidator();
    virtual bool doIsAcceptable();
    virtual void doSetCompletion(const TextCompletion& completion);
    virtual TextCompletion doGetCompletion();
    virtual void doSetCursorPosition(int position);
    virtual int doGetCursorPosition();
    virtual void doSetSelection(TextRange range);
    virtual TextRange doGetSelection();
    virtual std::wstring doGetSelectedText();
    virtual void doSelectAll();
    virtual void doInsert(const std::wstring& text);
    virtual void doUndo();
    virtual void doRedo();
    virtual bool doIsUndoAvailable();
    virtual bool doIsRedoAvailable();
    virtual void doCut();
    virtual void doCopy();
    virtual void doPaste();
    virtual void doimType(const std::wstring& text);
    virtual void doimPressReturn();

protected:
    void connectSignals() override;
    void mouseMoveEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void slotTextChanged(const QString& text);
    void slotReturnPressed();
    void slotEditingFinished();
    void slotCursorPositionChanged(int from, int to);
    void slotSelectionChanged();

private:
    void change(const QString& text);

    TextValidator m_validator;
    TextCompletion m_completion;
};

} // namespace VOXI
