#pragma once

#include <ostream>
#include <sstream>
#include <string>

// Takes what a standard stream (std::cout, std::cerr) receives while it lives. Standard C++ only,
// so that the tests of the numeric library and the fuzz targets can use it too.
class StreamCapture
{
public:
    explicit StreamCapture(std::ostream& stream) : m_stream(stream), m_old(stream.rdbuf(m_text.rdbuf())) { }
    ~StreamCapture() { m_stream.rdbuf(m_old); }
    StreamCapture(const StreamCapture&) = delete;
    StreamCapture& operator=(const StreamCapture&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::ostream& m_stream;
    std::streambuf* m_old;
};
