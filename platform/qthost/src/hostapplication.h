#pragma once

#include <QApplication>

namespace VOXI {

/// The application that the host makes. Qt leaves the text in empty fields black where a theme has
/// dark colours, but none for that; this gives it the colour of other texts, paler.
class HostApplication final : public QApplication
{
public:
    HostApplication(int& argc, char** argv);

protected:
    bool event(QEvent* event) override;

private:
    static void keepPlaceholdersReadable();
};

} // namespace VOXI
