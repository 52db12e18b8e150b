#include "voxi2/kernel/ignored.h"

#include "trov/thread.h"
#include "voxi2/kernel/vxobject2.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <mutex>

namespace VOXI {

namespace {

bool isWantedByEnvironment()
{
    const char* const wish = std::getenv("VOXI_LOG");
    return wish && *wish != '\0' && std::string_view(wish) != "0";
}

struct Hearer
{
    std::mutex m_mutex;
    std::shared_ptr<const IgnoredHandler> m_handler; // guarded
};

Hearer& hearer()
{
    static auto* const instance = new Hearer;
    return *instance;
}

thread_local constinit bool t_isTelling = false;

bool isUpper(char letter) { return letter >= 'A' && letter <= 'Z'; }

/// What the request is called that the function serves: `setText` for "void
/// VOXI::QtText2::doSetText(const std::string&)"; nothing for a constructor.
std::string requestOf(std::string_view function)
{
    for (const std::string_view prefix : {"::doim", "::do"}) {
        const std::size_t begin = function.find(prefix) + prefix.size();
        if (begin < prefix.size() || begin >= function.size() || !isUpper(function[begin]))
            continue;
        std::string request(function.substr(begin, function.find('(', begin) - begin));
        request[0] = static_cast<char>(request[0] - 'A' + 'a');
        return request;
    }
    function = function.substr(0, function.find('('));
    function.remove_prefix(function.find_last_of(": ") + 1); // or nothing
    const bool isConstructor = function.starts_with("VX") || function.starts_with("Qt");
    return isConstructor ? std::string() : std::string(function);
}

std::string lineFor(const VXObject* object, std::string_view why, std::string_view function)
{
    std::string line = "ignored: ";
    if (const auto* const asked = dynamic_cast<const VXObject2*>(object)) {
        line += asked->kind();
        line += ' ' + std::to_string(asked->id());
        if (const std::string name = asked->objectName(); !name.empty())
            line += " \"" + name + '"';
        line += ": ";
    }
    if (const std::string request = requestOf(function); !request.empty())
        line += request + ": ";
    line += why;
    return line;
}

} // namespace

std::atomic<bool> detail::tellsIgnored{isWantedByEnvironment()};

void setIgnoredHandler(IgnoredHandler handler)
{
    auto changed = handler ? std::make_shared<const IgnoredHandler>(std::move(handler)) : nullptr;
    {
        const std::lock_guard lock(hearer().m_mutex);
        detail::tellsIgnored = changed || isWantedByEnvironment();
        hearer().m_handler.swap(changed);
    }
    // Outside the lock the former one goes, which may come back here.
}

void detail::tellIgnored(const VXObject* object, std::string_view why, CallPlace where)
{
    if (t_isTelling)
        return;
    t_isTelling = true;
    try {
        const char* const function = where.function_name();
        const std::string line = lineFor(object, why, function ? function : "");
        std::shared_ptr<const IgnoredHandler> handler;
        {
            const std::lock_guard lock(hearer().m_mutex);
            handler = hearer().m_handler;
        }
        if (handler)
            (*handler)(line);
        else
            std::fprintf(stderr, "%s\n", line.c_str());
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
    t_isTelling = false;
}

} // namespace VOXI
