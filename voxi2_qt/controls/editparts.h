#pragma once

#include "voxi2/controls/textvalidator.h"

#include <QLineEdit>
#include <QWidgetAction>

QT_BEGIN_NAMESPACE
class QValidator;
QT_END_NAMESPACE

namespace VOXI {

class QtObject2;

/// An action shown as a button in a line edit. Qt's own button is deleted at once when its action
/// is taken out, also by a handler of its click; this one is deleted later.
class SideAction : public QWidgetAction
{
    Q_OBJECT

public:
    /// Moves one that is there.
    static void add(QLineEdit& edit, QAction& action, QLineEdit::ActionPosition position);
    static void remove(QLineEdit& edit, const QAction& action);

protected:
    QWidget* createWidget(QWidget* parent) override;

private:
    SideAction(QLineEdit& edit, QAction& action);

    QAction* m_action; // which takes this along
};

/// Null where there is no rule. A child of the peer's object, which it calls the application for.
QValidator* makeValidator(QtObject2& peer, const TextValidator& validator);

} // namespace VOXI
