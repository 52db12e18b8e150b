#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/controls/vxtext2.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace VOXI {
namespace {

class Form : public testing::Test
{
protected:
    Form()
    {
        m_form->addRow("&Name", m_name);
        m_form->addRow("&Age", m_age);
        m_page->resize({300, 200});
        m_page->show();
        turn();
    }
    ~Form() override
    {
        delete m_page;
        runDeletions();
    }

    int y(const VXWidget2* widget) const { return widget->globalPosition().y; }
    int right(const VXWidget2* widget) const
    {
        const VXRect<int> place = widget->globalPosition();
        return place.x + place.width;
    }

    VXPanel2* m_page = new VXPanel2(nullptr);
    VXFormLayout2* m_form = new VXFormLayout2(m_page);
    VXEdit2* m_name = new VXEdit2(m_page);
    VXSpinBox2* m_age = new VXSpinBox2(m_page);
};

TEST_F(Form, labelsStandBeforeTheirFieldsAndGiveThemTheFocus)
{
    EXPECT_LE(right(m_form->label(m_name)), m_name->globalPosition().x);
    EXPECT_EQ(m_name->globalPosition().x, m_age->globalPosition().x);
    EXPECT_EQ(spokenName(*m_age), QStringLiteral("Age"));
    QApplication::setActiveWindow(qt(*m_page));
    m_name->setFocus();
    QTest::keyClick(qt(*m_page), Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(m_age->hasFocus());

    m_form->addRow("again", m_name);
    m_form->addRow("nothing", static_cast<VXWidget2*>(nullptr));
    auto* const wide = new VXText2("over both columns", m_page);
    m_form->addRow(wide);
    turn();
    EXPECT_EQ(m_form->fields(), (std::vector<VXWidget2*>{m_name, m_age}));
    EXPECT_EQ(wide->globalPosition().x, m_form->label(m_name)->globalPosition().x);
    EXPECT_GT(y(wide), y(m_age));
    EXPECT_EQ(m_form->label(wide), nullptr);
}

TEST_F(Form, aRowMayBeALayout)
{
    auto* const path = new VXEdit2(m_page);
    auto* const button = new VXButton2("&Find", m_page);
    auto* const inner = new VXBoxLayout2(m_form);
    auto* const row = new VXBoxLayout2(m_form);
    row->addLayout(inner, 1);
    inner->addWidget(path);
    row->addWidget(button);
    VXWidget2* const first = m_form->insertRow(1, "&Path", row);
    turn();
    EXPECT_EQ(m_form->rows(), (std::vector<VXWidget2*>{m_name, first, m_age}));
    EXPECT_EQ(path->globalPosition().x, m_name->globalPosition().x) << "without margins";
    EXPECT_EQ(right(button), right(m_name));
    EXPECT_LT(y(path), y(m_age));
    EXPECT_EQ(spokenName(*first), QStringLiteral("Path"));
    QApplication::setActiveWindow(qt(*m_page));
    QTest::keyClick(qt(*m_page), Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(path->hasFocus());
    m_form->setRowVisible(first, false);
    EXPECT_FALSE(button->isVisible());
    m_form->setRowVisible(first, true);
    m_form->setValidationState(first, ValidationState::Error, "not there");
    EXPECT_TRUE(m_form->note(first)->isVisible());

    EXPECT_EQ(m_form->addRow("lies in the first", inner), nullptr);
    EXPECT_EQ(m_form->addRow("is one already", row), nullptr);
    EXPECT_EQ(m_form->addRow(m_form), nullptr);
    EXPECT_EQ(m_form->addRow(static_cast<VXLayout2*>(nullptr)), nullptr);
    auto* const wide = new VXBoxLayout2(m_form);
    wide->addWidget(new VXText2("over both columns", m_page));
    VXWidget2* const last = m_form->addRow(wide);
    turn();
    EXPECT_EQ(last->globalPosition().x, m_form->label(m_name)->globalPosition().x);

    delete row; // and with it the label, and the message
    runDeletions();
    EXPECT_EQ(m_form->rows(), (std::vector<VXWidget2*>{m_name, m_age, last}));
    EXPECT_TRUE(VXObject::isObjectValid(path)) << "it is its owner's";
    m_form->removeRow(last);
    EXPECT_EQ(wide->parent(), last);
}

TEST_F(Form, whatIsThoughtOfAFieldIsSeenBelowItAndSpoken)
{
    m_name->setAccessibleDescription("as on the letter box");
    auto* const other = new VXEdit2(m_page);
    other->setAccessibleDescription("as on the letter box");
    m_form->addRow("Other", other);
    turn();
    const int before = y(other);
    m_form->setValidationState(other, ValidationState::Error, L"too \u0161hort");
    m_form->setValidationState(m_name, ValidationState::Error, "too short");
    turn();
    const VXFieldNote2* const note = m_form->note(m_name);
    EXPECT_GT(y(other), before) << "it makes room";
    EXPECT_GT(y(note), y(m_name));
    EXPECT_EQ(note->globalPosition().x, m_name->globalPosition().x);
    EXPECT_TRUE(m_name->isHighlighted());
    EXPECT_EQ(other->accessibleDescription(), L"too \u0161hort");
    const QImage bad = qt(*m_name)->grab().toImage();
    m_form->setValidationState(m_name, ValidationState::Good);
    EXPECT_NE(qt(*m_name)->grab().toImage(), bad) << "another colour";
    m_form->setValidationState(m_name, static_cast<ValidationState>(77));
    EXPECT_EQ(m_form->validationState(m_name), ValidationState::None);
    m_form->setValidationState(other, ValidationState::None, "not shown");
    turn();
    EXPECT_EQ(y(other), before) << "and gives it back";
    EXPECT_FALSE(m_name->isHighlighted());
    EXPECT_EQ(other->accessibleDescription(), L"as on the letter box");
    EXPECT_EQ(m_form->validationState(m_page), ValidationState::None);
}

TEST_F(Form, theRowOfAFieldThatEndsGoes)
{
    const unsigned label = m_form->label(m_name)->id();
    const unsigned note = m_form->note(m_name)->id();
    m_form->setValidationState(m_name, ValidationState::Error, "wrong");
    delete m_name;
    runDeletions();
    EXPECT_FALSE(VXObject::isObjectValid(label));
    EXPECT_FALSE(VXObject::isObjectValid(note));
    m_form->setValidationState(m_name, ValidationState::Good);
    EXPECT_EQ(m_form->fields(), std::vector<VXWidget2*>{m_age});
    delete m_form;
    runDeletions();
    EXPECT_TRUE(m_age->isVisible()) << "it is its owner's";
}

TEST_F(Form, isFilledByWorkersWhileOthersEndIt)
{
    const VXHandle<VXFormLayout2> form(m_form);
    std::vector<std::thread> workers;
    workers.reserve(2);
    for (int i = 0; i < 2; ++i) {
        workers.emplace_back([form] {
            for (int row = 0; row < 100; ++row) {
                form.with([form](VXFormLayout2& layout) {
                    // Each of the first two waits, and the form may end meanwhile.
                    auto* const field = new VXEdit2(&layout);
                    if (form.isValid())
                        layout.addRow("label", field);
                    if (form.isValid())
                        layout.setValidationState(field, ValidationState::Warning, "by a worker");
                });
            }
        });
    }
    for (int i = 0; i < 50; ++i)
        turn();
    delete m_form;
    std::atomic<bool> isOver = false;
    std::thread waiter([&] {
        for (std::thread& worker : workers)
            worker.join();
        isOver = true;
    });
    while (!isOver)
        turn();
    waiter.join();
    EXPECT_FALSE(form.isValid());
}

TEST_F(Form, mayEndWhileAWorkerAddsALayout)
{
    for (int round = 0; round < 60; ++round) {
        const int turns = round % 12;
        auto* const ending = new VXFormLayout2(m_page);
        std::atomic<bool> began = false;
        std::atomic<bool> isOver = false;
        std::thread worker([&, form = VXHandle<VXFormLayout2>(ending)] {
            form.with([&](VXFormLayout2& layout) {
                began = true;
                auto* const row = new VXBoxLayout2;
                VXWidget2* const panel = form.isValid() ? layout.addRow("label", row) : nullptr;
                EXPECT_TRUE(form.isValid() || !panel);
            });
            isOver = true;
        });
        while (!began)
            std::this_thread::yield();
        for (int i = 0; i <= turns; ++i) {
            {
                const VXObjectDataLocker lock; // to be had while the worker waits for an answer
                if (i == turns)
                    delete ending;
            }
            turn();
        }
        while (!isOver)
            turn();
        worker.join();
    }
}

TEST_F(Form, itsRowsComeAndGoAnywhere)
{
    auto* const wide = new VXText2("wide", m_page);
    auto* const town = new VXEdit2(m_page);
    m_form->insertRow(1, wide);
    m_form->insertRow(0, "&Town", town, 3);
    m_form->insertRow(1, "again", m_name);
    EXPECT_EQ(m_form->rows(), (std::vector<VXWidget2*>{town, m_name, wide, m_age}));
    EXPECT_EQ(m_form->rowOf(wide), 2);
    EXPECT_EQ(m_form->rowOf(m_page), -1);
    turn();
    EXPECT_LT(y(town), y(m_name));
    EXPECT_LT(y(m_name), y(wide));
    EXPECT_LT(y(wide), y(m_age));
    EXPECT_GT(qt(*m_page)->height(), 2 * y(m_name) / 3) << "room to spare is the first row's";

    const int label = y(m_form->label(m_name));
    m_form->setLabelsAbove(true);
    m_form->setLabelAlignment(AlignmentFlag::Right);
    m_form->setLabel(town, "A much longer text");
    turn();
    EXPECT_LT(y(m_form->label(m_name)), y(m_name));
    EXPECT_EQ(m_name->globalPosition().x, wide->globalPosition().x);
    EXPECT_EQ(right(m_form->label(m_name)), right(m_name));
    m_form->setLabelsAbove(false);
    m_form->removeRow(town);
    EXPECT_TRUE(town->isVisible()) << "where it was";
    town->setParent(nullptr);
    turn();
    EXPECT_LT(y(m_form->label(m_name)), label) << "those below have moved up";
    EXPECT_EQ(m_form->label(town), nullptr);
    m_form->addRow("Town", town);
    EXPECT_EQ(m_form->rowOf(town), 3);
    delete wide;
    runDeletions();
    EXPECT_EQ(m_form->rows(), (std::vector<VXWidget2*>{m_name, m_age, town}));
}

TEST_F(Form, hidesRowsWithAllThatBelongsToThem)
{
    m_form->setValidationState(m_name, ValidationState::Error, "wrong");
    m_form->setRowVisible(m_name, false);
    m_form->setValidationState(m_name, ValidationState::Warning, "still wrong");
    m_form->setRowVisible(m_page, false);
    turn();
    EXPECT_FALSE(m_form->isRowVisible(m_name));
    for (const VXWidget2* each :
         std::initializer_list<VXWidget2*>{m_name, m_form->label(m_name), m_form->note(m_name)})
        EXPECT_FALSE(each->isVisible());
    m_form->setRowVisible(m_name, true);
    EXPECT_TRUE(m_form->note(m_name)->isVisible());
    m_form->setValidationState(m_name, ValidationState::None);
    m_form->setRowVisible(m_name, true);
    EXPECT_FALSE(m_form->note(m_name)->isVisible());
}

TEST_F(Form, isChangedByWhoHearsOfWhatIsMovedInIt)
{
    VXPanel2 elsewhere;
    auto* const moved = new VXEdit2(&elsewhere);
    elsewhere.show();
    moved->hidden().connect(m_form, [this](const VXWidgetEvent2&) { m_form->removeRow(m_name); });
    moved->focusLost().connect(m_form, [this](const VXFocusEvent2&) {
        m_form->removeRow(m_name);
        m_form->insertRow(0, new VXText2("another", m_page));
    });
    QApplication::setActiveWindow(qt(elsewhere));
    moved->setFocus();
    m_form->insertRow(0, "Moved", moved);
    turn();
    ASSERT_EQ(m_form->rows().size(), 3U);
    EXPECT_EQ(m_form->rowOf(moved), 1);
    EXPECT_LT(y(m_form->rows().front()), y(moved));
    EXPECT_LT(y(moved), y(m_age));

    auto* const last = new VXEdit2(&elsewhere);
    last->show();
    last->focusLost().connect(nullptr, [this](const VXFocusEvent2&) { delete m_form; });
    QApplication::setActiveWindow(qt(elsewhere));
    last->setFocus();
    const VXHandle<VXFormLayout2> form(m_form);
    m_form->insertRow(0, "Last", last);
    EXPECT_FALSE(form.isValid());
}

} // namespace
} // namespace VOXI
