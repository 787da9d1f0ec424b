#pragma once

#include <cstdio>
#include <string>

namespace TavrinUsdImport {

// Shows the import's progress reports: on a terminal as one bar redrawn in
// place, elsewhere as plain lines, one per change of message or value (an
// import reports once per prim, which would flood a log).
class ProgressDisplay {
public:
    ProgressDisplay(std::FILE* stream, bool terminal) : m_stream(stream), m_terminal(terminal) {}
    void Report(const std::string& message, int value);
    // Ends the bar's line, if one is being drawn.
    void Finish();

private:
    std::FILE* m_stream;
    bool m_terminal;
    std::string m_lastMessage;
    int m_lastValue = 0;
    bool m_hasReported = false;
    bool m_drawing = false;
};

} // namespace TavrinUsdImport
