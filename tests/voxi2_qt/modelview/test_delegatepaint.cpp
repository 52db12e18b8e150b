// What the delegate of item views draws.

#include "cellrecord.h"
#include "cellroles.h"
#include "delegateview.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace VOXI;

namespace {

/// One cell.
class RecordModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 1; }
    int columnCount(const QModelIndex& parent = {}) const override { return rowCount(parent); }
    QVariant data(const QModelIndex&, int role) const override
    {
        ++m_calls;
        return m_record.data(role);
    }

    CellStyles m_styles;
    CellRecord m_record;
    mutable int m_calls = 0;
};

class DelegatePaint : public testing::Test
{
protected:
    void set(const CellUIData& data)
    {
        m_model.m_record = CellRecord(data, m_model.m_styles);
        m_view.m_record = m_hasRecord ? &m_model.m_record : nullptr;
    }

    QImage painted(const QAbstractItemDelegate& delegate) const
    {
        QImage image(220, 80, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        delegate.paint(&painter, m_option, m_model.index(0, 0));
        return image;
    }
    QImage painted() { return painted(m_view.delegate()); }
    QImage painted(const CellUIData& data)
    {
        set(data);
        return painted();
    }
    QImage plain(const CellUIData& data)
    {
        set(data);
        return painted(QItemDelegate());
    }

    /// Whether it looks like any other text; the number of calls of `data` that it took is kept.
    bool isExact(const CellUIData& data)
    {
        set(data);
        const QImage expected = painted(m_plain);
        m_model.m_calls = 0;
        const QImage first = painted();
        m_calls = m_model.m_calls;
        return first == expected && painted() == expected;
    }

    RecordModel m_model;
    DelegateView m_view;
    QItemDelegate m_plain;
    QStyleOptionViewItem m_option = [this] {
        QStyleOptionViewItem option = m_view.option();
        option.rect = QRect(10, 10, 90, 20);
        option.state |= QStyle::State_Enabled | QStyle::State_Active;
        return option;
    }();
    bool m_hasRecord = true;
    int m_calls = 0;
};

CellUIData button(const wchar_t* text)
{
    return CellUIData(std::wstring(text)).setRenderer(CellRenderer::Button);
}

CellUIData checkBox(const wchar_t* value)
{
    return CellUIData(std::wstring(value)).setRenderer(CellRenderer::CheckBox, "label");
}

} // namespace

TEST_F(DelegatePaint, drawsPlainTextsAsQItemDelegateToThePixel)
{
    const std::wstring texts[] = {
        L"",
        L"short",
        L"fjord \x00c5\x00c9\x0301 j",
        L"so long that it cannot be shown as a whole in this cell",
        L"\x05e9\x05dc\x05d5\x05dd abc 123",
        L"\x0627\x0644\x0633\x0644\x0627\x0645 \x0639\x0644\x064a\x0643\x0645 "
        L"\x0648\x0631\x062d\x0645\x0629",
        L"&amp; <b>\ttab"};
    const QStyle::State states[] = {{},
                                    QStyle::State_Selected,
                                    QStyle::State_HasFocus,
                                    QStyle::State_Selected | QStyle::State_HasFocus};
    std::vector<CellUIData> looks(6);
    looks[1].setAlignment(AlignmentFlag::Right);
    looks[2].setAlignment(AlignmentFlag::HCenter | AlignmentFlag::Bottom);
    looks[3].setBold().setItalic().setFontSize(14);
    looks[4].setForeground(Color(200, 0, 0)).setBackground(Color(0, 200, 0, 100));
    looks[5].setRenderer(CellRenderer::HyperLink);
    const QRect rects[] = {{10, 10, 90, 20}, {5, 5, 200, 45}, {10, 10, 90, 9}, {10, 10, 3, 20}};
    const QStyle::State enabled = QStyle::State_Enabled;
    const QStyle::State active = QStyle::State_Active;
    m_option.palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0, 0, 200, 90));
    int compared = 0;
    for (const std::wstring& text : texts) {
        for (CellUIData data : looks) {
            data.setValue(text);
            for (const QRect& rect : rects) {
                for (const QStyle::State state : states) {
                    for (int variant = 0; variant < 16; ++variant) {
                        m_option.rect = rect;
                        m_option.state = state | (variant & 1 ? enabled : QStyle::State_None)
                                         | (variant & 2 ? active : QStyle::State_None);
                        m_option.direction = variant & 4 ? Qt::RightToLeft : Qt::LeftToRight;
                        m_option.features.setFlag(QStyleOptionViewItem::WrapText, variant & 8);
                        m_option.textElideMode = variant & 2 ? Qt::ElideRight : Qt::ElideMiddle;
                        ASSERT_TRUE(isExact(data))
                            << QString::fromStdWString(text).toStdString() << ' ' << rect.width()
                            << 'x' << rect.height() << " state " << int(m_option.state)
                            << " variant " << variant << " look " << (&data - looks.data());
                        ASSERT_EQ(m_calls, 0) << "it was not drawn from the record";
                        ++compared;
                    }
                }
            }
        }
    }
    EXPECT_EQ(compared, 7 * 6 * 4 * 4 * 16);
}

TEST_F(DelegatePaint, leavesTheRareToQItemDelegate)
{
    m_option.rect.setHeight(60);
    EXPECT_TRUE(isExact(std::wstring(L"two\nlines")));
    EXPECT_GT(m_calls, 0);
    EXPECT_TRUE(isExact(std::wstring(L"and \x2028 so")));
    CellUIData icon(std::wstring(L"icon"));
    icon.setIcon(Icon::fromPixmap(Pixmap(1, 1, {0xff0000ff})));
    EXPECT_TRUE(isExact(icon));

    m_option.showDecorationSelected = false;
    m_option.state |= QStyle::State_Selected | QStyle::State_HasFocus;
    EXPECT_TRUE(isExact(std::wstring(L"text")));
    m_hasRecord = false;
    EXPECT_TRUE(isExact(std::wstring(L"text")));
}

TEST_F(DelegatePaint, aChangedFontOrStyleIsSeen)
{
    EXPECT_TRUE(isExact(std::wstring(L"text")));
    m_option.font.setPointSize(m_option.font.pointSize() + 5);
    m_option.fontMetrics = QFontMetrics(m_option.font);
    EXPECT_TRUE(isExact(std::wstring(L"text")));
    m_view.setStyleSheet(QStringLiteral("QTableView { color: red; }"));
    m_view.delegate().clearPaintCache();
    EXPECT_TRUE(isExact(std::wstring(L"text")));
}

TEST_F(DelegatePaint, drawsControls)
{
    for (const bool hasRecord : {true, false}) {
        m_hasRecord = hasRecord;
        EXPECT_NE(painted(button(L"a")), plain(CellUIData(std::wstring(L"a"))));
        EXPECT_NE(painted(button(L"a")), painted(button(L"b")));
        EXPECT_NE(painted(button(L"&a")), painted(button(L"a"))) << "a cell has no access keys";

        EXPECT_NE(painted(checkBox(L"1")), painted(checkBox(L"0")));
        EXPECT_EQ(painted(checkBox(L"true")), painted(checkBox(L"1")));
        EXPECT_EQ(painted(checkBox(L"false")), painted(checkBox(L"")));
        EXPECT_NE(painted(checkBox(L"1").setRenderer(CellRenderer::CheckBox, "other")),
                  painted(checkBox(L"1")));

        const auto combo = [](const char* editable) {
            return CellUIData(std::wstring(L"text")).setRenderer(CellRenderer::ComboBox, editable);
        };
        EXPECT_NE(painted(combo("true")), painted(combo("false")));
        EXPECT_EQ(painted(combo("True")), painted(combo("false")));

        CellUIData background(std::wstring(L"unseen"));
        background.setBackground(Color(0, 200, 0)).setRenderer(CellRenderer::Background);
        const QImage image = painted(background);
        EXPECT_EQ(image.pixelColor(12, 12), QColor(0, 200, 0));
        EXPECT_EQ(image, painted(background.setValue(std::wstring(L"other"))));
        m_option.state |= QStyle::State_HasFocus;
        EXPECT_NE(image, painted(background));
        m_option.state &= ~QStyle::State_HasFocus;
    }
}

TEST_F(DelegatePaint, drawsNothingOutsideTheCell)
{
    m_option.rect.setSize({12, 8});
    for (const CellUIData& data : {button(L"long text"), checkBox(L"1")}) {
        QImage image = painted(data);
        QPainter(&image).fillRect(m_option.rect, Qt::white);
        QImage empty(image.size(), image.format());
        empty.fill(Qt::white);
        EXPECT_EQ(image, empty);
    }
}

TEST_F(DelegatePaint, controlsBlendWithTheSelection)
{
    QPalette palette = m_view.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Highlight, QColor(10 + group, 20, 30));
        palette.setColor(group, QPalette::HighlightedText, QColor(40 + group, 50, 60));
    }
    m_view.setPalette(palette);
    const auto colors = [&] {
        const QPalette used = m_view.delegate().getHighlightedPalette(m_option, &m_view);
        return std::pair(used.color(QPalette::Window), used.color(QPalette::WindowText));
    };
    const auto highlight = [](QPalette::ColorGroup group) {
        return std::pair(QColor(10 + group, 20, 30), QColor(40 + group, 50, 60));
    };
    EXPECT_EQ(colors().second, palette.color(QPalette::Active, QPalette::WindowText));
    m_option.state |= QStyle::State_Selected;
    EXPECT_EQ(colors(), highlight(QPalette::Active));
    m_option.state &= ~QStyle::State_Active;
    EXPECT_EQ(colors(), highlight(QPalette::Inactive));
    m_option.state &= ~QStyle::State_Enabled;
    EXPECT_EQ(colors(), highlight(QPalette::Disabled));

    set(checkBox(L"1"));
    m_option.palette = palette;
    EXPECT_EQ(painted().pixelColor(98, 28), QColor(10 + QPalette::Disabled, 20, 30));
}

TEST_F(DelegatePaint, controlsHaveTheRoomThatTheirStyleWants)
{
    const auto hint = [this](const CellUIData& data) {
        set(data);
        return m_view.delegate().sizeHint(m_option, m_model.index(0, 0));
    };
    const QSize text = hint(L"press");
    const QSize wanted = QPushButton(QStringLiteral("press")).sizeHint();
    EXPECT_GE(hint(button(L"press")).height(), wanted.height());
    EXPECT_GT(hint(button(L"press")).width(), text.width());
    EXPECT_GT(hint(checkBox(L"1")).width(), hint(L"label").width());
    const QSize combo = hint(CellUIData(L"press").setRenderer(CellRenderer::ComboBox));
    EXPECT_GT(combo.width(), text.width());
    EXPECT_GE(combo.height(), text.height());
}

TEST_F(DelegatePaint, rowsAreAsHighAsTheyWereSet)
{
    struct FixedView : DelegateView
    {
        int fixedRowHeight(const QModelIndex& index) const override
        {
            return index.row() ? 55 : -1;
        }
    } view;
    const QSize free = view.delegate().sizeHint(view.option(), view.at(0));
    EXPECT_EQ(free, QItemDelegate().sizeHint(view.option(), view.at(0)));
    EXPECT_EQ(view.delegate().sizeHint(view.option(), view.at(1)), QSize(free.width(), 55));
}
