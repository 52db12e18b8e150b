#include "../eventlog.h"
#include "../page.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/controls/vxtext2.h"

#include <cmath>
#include <cstdio>

namespace gallery {

using namespace VOXI;

namespace {

/// What a loan costs that is paid back in equal parts.
class LoanCalculator : public VXPanel2
{
public:
    explicit LoanCalculator(VXObject2* parent) : VXPanel2(parent)
    {
        m_amount->setRange({100, 10'000'000});
        m_amount->setSingleStep(1000);
        m_amount->setValue(20'000);
        m_rate->setRange({0, 500});
        m_rate->setValue(45);
        m_rate->setSuffix(L" \u2030 a year");
        m_years->setRange({1, 40});
        m_years->setValue(10);
        m_periods->addItems({{L"every month", 12}, {L"every quarter", 4}, {L"every year", 1}});
        m_payment->setFont(VXFont(std::string(), 0, VXFont::Bold));

        m_form->addRow("&Amount", m_amount);
        m_form->addRow("&Interest", m_rate);
        m_form->addRow("&Years", m_years);
        m_form->addRow("&Paid", m_periods);
        m_form->addRow("Each payment", m_payment);
        m_form->addRow("Interest in all", m_interest);
        m_amount->valueChanged().connect(this, &LoanCalculator::calculate);
        m_rate->valueChanged().connect(this, &LoanCalculator::calculate);
        m_years->valueChanged().connect(this, &LoanCalculator::calculate);
        m_periods->currentChanged().connect(this, &LoanCalculator::calculate);
        calculate();
    }
    ~LoanCalculator() override { retire(); }

private:
    void calculate()
    {
        const double amount = m_amount->value();
        const int periods = static_cast<int>(m_periods->currentUid());
        const double rate = m_rate->value() / 1000.0 / periods;
        const int payments = m_years->value() * periods;
        const double payment =
            rate > 0 ? amount * rate / (1 - std::pow(1 + rate, -payments)) : amount / payments;
        const double interest = payment * payments - amount;
        m_payment->setText(money(payment) + ", " + std::to_string(payments) + " times in "
                           + std::to_string(m_years->value()) + " years");
        m_interest->setText(money(interest));
        m_form->setValidationState(
            m_years, interest > amount ? ValidationState::Warning : ValidationState::None,
            std::to_string(m_years->value()) + " years: the interest is more than the loan.");
    }

    static std::string money(double amount)
    {
        char text[40];
        std::snprintf(text, sizeof text, "%.2f", amount);
        return text;
    }

    VXFormLayout2* m_form = new VXFormLayout2(this);
    VXSpinBox2* m_amount = new VXSpinBox2(this);
    VXSpinBox2* m_rate = new VXSpinBox2(this);
    VXSlider2* m_years = new VXSlider2(this);
    VXComboBox2* m_periods = new VXComboBox2(this);
    VXText2* m_payment = new VXText2(this);
    VXText2* m_interest = new VXText2(this);
};

VXWidget2* create(VXObject2* parent, EventLog&) { return new LoanCalculator(parent); }

} // namespace

Page loanPage()
{
    return {"loan", "A loan calculator",
            "A whole program to be copied: what is changed is calculated at once.", &create};
}

} // namespace gallery
