#pragma once

#include <QAbstractTextDocumentLayout>
#include <QBasicTimer>
#include <QFont>
#include <QTextBlock>
#include <QTextOption>

namespace VOXI {

/// Lays plain texts out: only what is seen, so that a hundred thousand lines cost what a screenful
/// does.
///
/// Qt keeps a number of lines for each block, and sums of them in its tree of blocks, which follow
/// each change. They stand for pixels here: the height of a block that was laid out, an estimate
/// for others. What is where is found in the tree, so, and nothing has to be kept beside it.
class PlainTextLayout final : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    explicit PlainTextLayout(QTextDocument* document);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

    /// The nearest one where there is none.
    QTextBlock blockAt(qreal y) const;

    /// Lays out what is seen between two heights. Answers by how much that has grown which begins
    /// above `anchor`.
    int layOut(int top, int bottom, int anchor);

Q_SIGNALS:
    /// Another text is about to be laid out.
    void changing(int from, int removed, int added);

protected:
    void documentChanged(int from, int removed, int added) override;
    void timerEvent(QTimerEvent* event) override;

private:
    struct Settings
    {
        QFont m_font{};
        QTextOption::WrapMode m_wrap = QTextOption::NoWrap;
        QTextOption::Flags m_flags{};
        Qt::LayoutDirection m_direction = Qt::LayoutDirectionAuto;
        qreal m_tab = -1;
        qreal m_margin = 0;
        qreal m_width = 0; ///< 0 where it does not matter

        bool operator==(const Settings&) const = default;
    };

    bool isSettingsChange(int from, int removed, int added) const;
    Settings settings() const;
    void adopt(const Settings& settings);
    bool fits(const QTextBlock& block) const;
    void seekWidth() const;
    int estimate(const QTextBlock& block) const;
    void forget(QTextBlock block, bool isOtherText) const;
    void lay(const QTextBlock& block) const;
    QSizeF layLines(QTextLayout& layout, bool isRightToLeft) const;
    void noteWidth(int former, int width) const;
    void findWidth();
    void reportSize();
    void drawBlock(QPainter& painter, const PaintContext& context, const QRectF& clip,
                   const QTextBlock& block, const QPointF& at) const;
    qreal top(const QTextBlock& block) const;

    Settings m_settings;
    int m_lineHeight = 0;
    qreal m_characterWidth = 0;
    int m_blockCount = 0;
    int m_characterCount = 0;
    QSizeF m_reported;

    // What is laid out is asked for by questions.
    mutable int m_width = 0; // of the widest block that was laid out
    mutable bool m_hasRightToLeft = false;
    mutable QBasicTimer m_sizeTimer;
    mutable QBasicTimer m_widthTimer; // while the width may be that of a block that is gone
};

} // namespace VOXI
