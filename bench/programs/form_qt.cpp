// A form whose fields are judged while they are typed in, and sent only when all are right.

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Sign up"));
    auto* page = new QWidget(&window);
    auto* form = new QFormLayout(page);
    auto* name = new QLineEdit(page);
    auto* nameNote = new QLabel(page);
    auto* mail = new QLineEdit(page);
    auto* mailNote = new QLabel(page);
    auto* age = new QSpinBox(page);
    auto* send = new QPushButton(QStringLiteral("&Send"), page);
    form->addRow(QStringLiteral("&Name"), name);
    form->addRow(nameNote);
    form->addRow(QStringLiteral("&Mail"), mail);
    form->addRow(mailNote);
    form->addRow(QStringLiteral("&Age"), age);
    form->addRow(send);
    age->setRange(18, 120);
    nameNote->hide();
    mailNote->hide();
    send->setEnabled(false);

    const auto judge = [=] {
        const bool named = !name->text().isEmpty();
        const bool reached = mail->text().contains(u'@');
        nameNote->setText(QStringLiteral("We need to call you something."));
        nameNote->setVisible(!named);
        name->setAccessibleDescription(named ? QString() : nameNote->text());
        mailNote->setText(QStringLiteral("This is no address."));
        mailNote->setVisible(!reached);
        mail->setAccessibleDescription(reached ? QString() : mailNote->text());
        send->setEnabled(named && reached);
    };
    QObject::connect(name, &QLineEdit::textEdited, form, judge);
    QObject::connect(mail, &QLineEdit::textEdited, form, judge);
    QObject::connect(send, &QPushButton::clicked, form, [=] {
        QMessageBox::information(page, {}, QStringLiteral("Welcome, %1!").arg(name->text()));
    });
    window.setCentralWidget(page);
    window.show();
    return QApplication::exec();
}
