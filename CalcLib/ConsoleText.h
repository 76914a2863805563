#pragma once

// Formats a line as printf does and writes it to std::cout, where the calculators' notes go.
void printConsole(const char* format, ...) __attribute__((format(printf, 1, 2)));
