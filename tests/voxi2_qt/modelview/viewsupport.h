#pragma once

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"
#include "voxi2/modelview/vxtreemodel2.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QHeaderView>
#include <QTest>

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <set>
#include <string>
#include <vector>

namespace VOXI {

/// A view in a window that is shown.
template <class View>
class ShownView : public testing::Test
{
protected:
    ShownView()
    {
        m_window.setCentralWidget(&m_view);
        m_window.resize({600, 400});
        m_window.show();
        turn();
    }

    QAbstractItemView& qtView() { return *qobject_cast<QAbstractItemView*>(qt(m_view)); }
    QAbstractItemModel& qtModel() { return *qtView().model(); }
    QWidget* viewport() { return qtView().viewport(); }

    /// Shows a model, which a tester watches, until all cells in sight are known.
    void show(VXAbstractViewModel2& model)
    {
        m_tester.reset();
        m_view.setViewModel(&model);
        m_tester = std::make_unique<QAbstractItemModelTester>(
            qtView().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        settle();
    }

    /// Has everything laid out, asked for, answered and painted.
    void settle()
    {
        for (int i = 0; i < 4; ++i) {
            turn();
            qtView().grab();
        }
        turn();
    }

    QPoint centreOf(unsigned row, unsigned column)
    {
        const VXRect<int> rect = m_view.cellRect(row, column);
        return {rect.x + rect.width / 2, rect.y + rect.height / 2};
    }
    void click(unsigned row, unsigned column, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(viewport(), button, modifiers, centreOf(row, column));
        turn();
    }
    void type(const QString& text)
    {
        QTest::keyClicks(&qtView(), text);
        turn();
    }

    std::unique_ptr<QAbstractItemModelTester> m_tester;
    VXWindow2 m_window;
    View m_view{&m_window};
};

/// Rows 1, 2, ... with the texts "row N, column M", which can be edited.
class NumberedModel : public VXTableModel2
{
public:
    explicit NumberedModel(int rows, int columns = 3, VXObject2* parent = nullptr)
        : VXTableModel2(headers(columns), parent)
    {
        for (int row = 1; row <= rows; ++row) {
            std::vector<CellUIData> cells;
            for (int column = 1; column <= columns; ++column)
                cells.push_back(CellUIData(textOf(row, column)).setReadOnly(false));
            appendRow(std::move(cells));
        }
    }
    ~NumberedModel() override { retire(); }

    static std::wstring textOf(int row, int column)
    {
        return L"row " + std::to_wstring(row) + L", column " + std::to_wstring(column);
    }

private:
    static std::vector<CellUIData> headers(int columns)
    {
        std::vector<CellUIData> made;
        for (int column = 1; column <= columns; ++column)
            made.emplace_back(L"column " + std::to_wstring(column));
        return made;
    }
};

/// Rows 1, 2, ... of two columns; keeps its queries until it is told to answer.
class SlowModel : public VXAbstractViewModel2
{
public:
    explicit SlowModel(unsigned rows)
    {
        changeSize(SizeChange2::appendColumns({1, 2}));
        std::vector<unsigned> all(rows);
        std::iota(all.begin(), all.end(), 1);
        changeSize(SizeChange2::appendRows(std::move(all)));
    }
    ~SlowModel() override { retire(); }

    void query(const ViewQuery2& query) override { m_queries.push_back(query); }

    void answerAll()
    {
        for (const ViewQuery2& query : m_queries) {
            QueryResult2 result;
            for (const unsigned row : query.rows()) {
                for (const unsigned column : query.columns())
                    result.set(row, column, m_cell(row, column));
            }
            answer(query, std::move(result));
        }
        m_queries.clear();
    }

    std::function<CellUIData(unsigned, unsigned)> m_cell = [](unsigned row, unsigned) {
        return CellUIData(std::to_wstring(row));
    };
    std::deque<ViewQuery2> m_queries;
};

} // namespace VOXI
