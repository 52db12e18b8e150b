#pragma once

#include "voxi2/controls/vxedit2.h"
#include "voxi2_qt/controls/qtabstractedit2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QLineEdit>

namespace VOXI {

/// The peer of the line edit.
class VOXI2_QT_EXPORT QtEdit2 : public QtAbstractEdit2Shim<VXEdit2, VXEdit2Emitters, QLineEdit>
{
    Q_OBJECT

public:
    QtEdit2(VXEdit2* object, VXEdit2Emitters* emitters, QWidget* parent);

    // Requests, in the order of the emitters tables
    void doSetCursorPosition(int position) override;
    int doGetCursorPosition() override;
    void doSetSelection(TextRange range) override;
    TextRange doGetSelection() override;
    std::wstring doGetSelectedText() override;
    void doInsert(const std::wstring& text) override;
    bool doIsUndoAvailable() override;
    bool doIsRedoAvailable() override;
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
    virtual void doimPressReturn();

protected:
    void connectSignals() override;
    void change(const QString& text) override;
    QString wholeText() const override;

private Q_SLOTS:
    void slotTextChanged(const QString& text);
    void slotReturnPressed();
    void slotEditingFinished();
    void slotCursorPositionChanged();
    void slotSelectionChanged();

private:
    TextValidator m_validator;
    TextCompletion m_completion;
};

} // namespace VOXI
