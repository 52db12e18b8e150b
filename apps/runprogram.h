#pragma once

#include "qthost/qthost.h"

#include <cstdio>
#include <exception>

namespace apps {

/// What a program's `main` does around its own: brings the toolkit up for it, and says what it
/// throws. Its exit code.
template <class Program>
int runProgram(const char* name, int& argc, char** argv, const Program& program)
{
    try {
        VOXI::QtHost host(argc, argv);
        return program(host);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", name, error.what());
        return 1;
    }
}

} // namespace apps
