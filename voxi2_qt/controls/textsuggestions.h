#pragma once

#include "voxi2/controls/textareavalues.h"

#include <QTextCursor>
#include <QTreeView>

#include <vector>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QTextEdit;
QT_END_NAMESPACE

namespace VOXI {

class QtAnchor;

/// The list beside the cursor of an edit area, of texts to go on with. It never has the focus: the
/// area hands it the keys that are meant for it.
class TextSuggestions final : public QTreeView
{
    Q_OBJECT

public:
    explicit TextSuggestions(QTextEdit& area);
    ~TextSuggestions() override;

    /// Shows them for what the cursor selects, and what will be typed there; see
    /// `VXEditArea2::suggest`.
    void offer(const QTextCursor& range, const std::vector<TextSuggestion>& suggestions);
    void withdraw();
    bool isOffering() const { return isVisible(); }
    /// None when it is not shown.
    const std::vector<TextSuggestion>& offered() const;
    /// Selects what one of them would be put in the place of.
    QTextCursor range() const;

    bool wantsKey(const QKeyEvent& event) const;
    void takeKey(QKeyEvent& event);

Q_SIGNALS:
    /// The user has chosen that one.
    void taken(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void slotCursorMoved();
    void slotPlace();

private:
    class Model;

    bool isAtCursor() const;
    void fit();

    QTextEdit& m_area;
    Model* m_model;
    QtAnchor* m_anchor;
    QTextCursor m_start; // stays before what is typed at it
    QTextCursor m_end;
};

} // namespace VOXI
