// A form whose fields are judged while they are typed in, and sent only when all are right.

#include "qthost/qthost.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/containers/vxmessage2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxfieldnote2.h"
#include "voxi2/controls/vxspinbox2.h"

using namespace VOXI;

int main(int argc, char** argv)
{
    QtHost host(argc, argv);
    VXWindow2 window("Sign up");
    auto* page = new VXPanel2(&window);
    auto* form = new VXFormLayout2(page);
    auto* name = new VXEdit2(page);
    auto* mail = new VXEdit2(page);
    auto* age = new VXSpinBox2(page);
    auto* send = new VXButton2("&Send", page);
    form->addRow("&Name", name);
    form->addRow("&Mail", mail);
    form->addRow("&Age", age);
    form->addRow(send);
    age->setRange({18, 120});
    send->setEnabled(false);

    const auto judge = [=] {
        const bool named = !name->text().empty();
        const bool reached = mail->text().find('@') != std::string::npos;
        form->setValidationState(name, named ? ValidationState::None : ValidationState::Error,
                                 named ? "" : "We need to call you something.");
        form->setValidationState(mail, reached ? ValidationState::None : ValidationState::Error,
                                 reached ? "" : "This is no address.");
        send->setEnabled(named && reached);
    };
    name->textEdited().connect(form, judge);
    mail->textEdited().connect(form, judge);
    send->clicked().connect(form,
                            [=] { VXMessage2::inform(page, "Welcome, " + name->text() + "!"); });
    window.setCentralWidget(page);
    window.show();
    return host.exec();
}
