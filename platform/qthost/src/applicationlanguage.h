#pragma once

#include <memory>
#include <vector>

class QTranslator;

namespace VOXI {

/// The user's language for all that an application of the host's own says by itself: the library's
/// texts and Qt's. A program's function, see `setTranslation`, is asked for Qt's, too.
class ApplicationLanguage
{
public:
    ApplicationLanguage();
    ~ApplicationLanguage();
    ApplicationLanguage(const ApplicationLanguage&) = delete;
    ApplicationLanguage& operator=(const ApplicationLanguage&) = delete;

private:
    class ProgramsTranslator;

    void install(std::unique_ptr<QTranslator> translator);
    bool use(const class QString& language);

    std::vector<std::unique_ptr<QTranslator>> m_translators;
};

} // namespace VOXI
