#include "CalcLib/ConsoleText.h"

#include <cstdarg>
#include <cstdio>
#include <iostream>
#include <vector>

void printConsole(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (length > 0) {
        std::vector<char> text(static_cast<size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), format, args);
        std::cout.write(text.data(), length);
    }
    va_end(args);
}
