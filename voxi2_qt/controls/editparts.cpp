#include "editparts.h"

#include "trov/thread.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QDoubleValidator>
#include <QIntValidator>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QToolButton>

#include <exception>

namespace VOXI {

// Side actions ------------------------------------------------------------------------------------

SideAction::SideAction(QLineEdit& edit, QAction& action) : QWidgetAction(&edit), m_action(&action)
{
    connect(&action, &QObject::destroyed, this, [this] {
        static_cast<QLineEdit*>(parent())->removeAction(this);
        deleteLater();
    });
}

void SideAction::add(QLineEdit& edit, QAction& action, QLineEdit::ActionPosition position)
{
    remove(edit, action);
    edit.addAction(new SideAction(edit, action), position);
}

void SideAction::remove(QLineEdit& edit, const QAction& action)
{
    for (SideAction* side : edit.findChildren<SideAction*>(Qt::FindDirectChildrenOnly)) {
        if (side->m_action == &action) {
            side->m_action = nullptr;
            side->disconnect();
            edit.removeAction(side);
            side->deleteLater();
        }
    }
}

QWidget* SideAction::createWidget(QWidget* parent)
{
    auto* const button = new QToolButton(parent);
    button->setDefaultAction(m_action);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCursor(Qt::ArrowCursor);
    return button;
}

// Validators --------------------------------------------------------------------------------------

namespace {

class FunctionValidator final : public QValidator
{
public:
    FunctionValidator(QtObject2& peer, TextValidator::SharedFunction function)
        : QValidator(peer.asQObject()),
          m_peer(peer),
          m_function(std::move(function))
    {}

    State validate(QString& input, int&) const override
    {
        const auto function = m_function; // which may be replaced by what it does
        const QtHandlerFrame frame(m_peer);
        try {
            return stateOf((*function)(toStdWString(input)));
        } catch (...) {
            TROV::Thread::reportException(std::current_exception());
        }
        return Acceptable;
    }

private:
    static State stateOf(TextValidity validity)
    {
        switch (validity) {
        case TextValidity::No:
            return Invalid;
        case TextValidity::NotYet:
            return Intermediate;
        case TextValidity::Acceptable:
            break;
        }
        return Acceptable;
    }

    QtObject2& m_peer;
    const TextValidator::SharedFunction m_function;
};

struct Maker
{
    QtObject2& m_peer;

    QValidator* operator()(std::monostate) const { return nullptr; }

    QValidator* operator()(const TextValidator::IntegerRange& range) const
    {
        return new QIntValidator(range.least, range.greatest, m_peer.asQObject());
    }

    QValidator* operator()(const TextValidator::DecimalRange& range) const
    {
        auto* const made =
            new QDoubleValidator(range.least, range.greatest, range.decimals, m_peer.asQObject());
        made->setNotation(QDoubleValidator::StandardNotation);
        return made;
    }

    QValidator* operator()(const TextValidator::Pattern& pattern) const
    {
        const QRegularExpression expression(toQString(pattern.expression));
        return expression.isValid()
                   ? new QRegularExpressionValidator(expression, m_peer.asQObject())
                   : nullptr;
    }

    QValidator* operator()(const TextValidator::SharedFunction& function) const
    {
        return new FunctionValidator(m_peer, function);
    }
};

} // namespace

QValidator* makeValidator(QtObject2& peer, const TextValidator& validator)
{
    return std::visit(Maker{peer}, validator.rule());
}

} // namespace VOXI
