#pragma once

#include <QItemDelegate>
#include <QList>
#include <QPointer>

namespace VOXI {

class QtSimplePropertyTree2;

/// The delegate of the property tree, which does the editing.
class QtSimpleItemDelegate2 final : public QItemDelegate
{
    Q_OBJECT

public:
    explicit QtSimpleItemDelegate2(QtSimplePropertyTree2& tree);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// The property's editor has it already.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    bool eventFilter(QObject* object, QEvent* event) override;

    /// Sees what happens to the widget, and to what it hands the focus on to.
    void listenTo(QWidget* widget);
    void stopListening();

private:
    bool handleFocusOut(QEvent* event);

    QtSimplePropertyTree2& m_tree;
    QList<QPointer<QWidget>> m_listenedTo; ///< the editor and what is in it
};

} // namespace VOXI
