#pragma once

#include "voxi2_qt/controls/qtabstractedit2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"

namespace VOXI {

/// Joins `QtAbstractEdit2` with a Qt class that a text is edited in.
template <class Object, class Emitters, class Q>
class QtAbstractEdit2Shim : public QtWidget2Shim<Object, Emitters, QtAbstractEdit2, Q>
{
public:
    void doSetReadOnly(bool readOnly) override { this->setReadOnly(readOnly); }
    bool doIsReadOnly() override { return this->isReadOnly(); }

    void doSelectAll() override
    {
        const QtProgramScope scope;
        this->settle();
        this->selectAll();
    }

    void doUndo() override
    {
        const QtProgramScope scope;
        this->settle();
        if (!this->isReadOnly())
            this->undo();
    }

    void doRedo() override
    {
        const QtProgramScope scope;
        this->settle();
        if (!this->isReadOnly())
            this->redo();
    }

    void doCut() override
    {
        const QtProgramScope scope;
        this->settle();
        if (!this->isReadOnly())
            this->cut();
    }

    void doCopy() override
    {
        this->settle();
        this->copy();
    }

    void doPaste() override
    {
        const QtProgramScope scope;
        this->settle();
        if (!this->isReadOnly())
            this->paste();
    }

protected:
    using QtWidget2Shim<Object, Emitters, QtAbstractEdit2, Q>::QtWidget2Shim;

    void changePlaceholder(const QString& text) override { this->setPlaceholderText(text); }
    QString shownPlaceholder() const override { return this->placeholderText(); }

    /// Qt waits in here while the user drags a text, and goes on behind that.
    void mouseMoveEvent(QMouseEvent* event) override
    {
        const QtDeletionHold hold(this);
        QtWidget2Shim<Object, Emitters, QtAbstractEdit2, Q>::mouseMoveEvent(event);
    }
};

} // namespace VOXI
