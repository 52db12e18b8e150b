#pragma once

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QWidget>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// The form of voxiform.h with plain Qt.
struct QtForm
{
    std::unique_ptr<QWidget> m_panel;
    QGridLayout* m_grid;
    std::vector<std::array<QWidget*, 3>> m_rows;

    explicit QtForm(QMainWindow* window = nullptr)
        : m_panel(std::make_unique<QWidget>(window)),
          m_grid(new QGridLayout(m_panel.get()))
    {}

    void makeRow()
    {
        const QString label = QString::fromStdString("Row " + std::to_string(m_rows.size()));
        auto* text = new QLabel(m_panel.get());
        auto* box = new QCheckBox(m_panel.get());
        auto* button = new QPushButton(m_panel.get());
        text->setText(label);
        box->setText(label);
        button->setText(label);
        m_rows.push_back({text, box, button});
    }
    void placeRow(int row)
    {
        int column = 0;
        for (QWidget* widget : m_rows[static_cast<std::size_t>(row)])
            m_grid->addWidget(widget, row, column++);
    }
    void addRows(int rows)
    {
        for (int row = 0; row < rows; ++row) {
            makeRow();
            placeRow(row);
        }
    }
    void layOut() { m_grid->activate(); }
    void showUnpainted()
    {
        m_panel->setUpdatesEnabled(false);
        m_panel->show();
    }
    void change(bool second)
    {
        static_cast<QPushButton*>(m_rows[0][2])
            ->setText(second ? QStringLiteral("Apply changes") : QStringLiteral("Close"));
        m_grid->activate();
    }
};

} // namespace bench
