#include "tools/tavrin-usd-import/ProgressDisplay.h"

#include <algorithm>

namespace TavrinUsdImport {

namespace {

constexpr int barWidth = 40;

} // namespace

void ProgressDisplay::Report(const std::string& message, int value)
{
    if (m_hasReported && message == m_lastMessage && value == m_lastValue)
        return;
    m_hasReported = true;
    m_lastMessage = message;
    m_lastValue = value;

    // A failure (-1) ends the bar and is said on a line of its own.
    if (!m_terminal || value < 0) {
        Finish();
        std::fprintf(m_stream, "%s %d\n", message.c_str(), value);
        std::fflush(m_stream);
        return;
    }
    const int filled = std::clamp(value, 0, 100) * barWidth / 100;
    std::fprintf(m_stream, "\r[%s%s] %3d%% %-20s", std::string(filled, '#').c_str(),
                 std::string(barWidth - filled, ' ').c_str(), value, message.c_str());
    std::fflush(m_stream);
    m_drawing = true;
}

void ProgressDisplay::Finish()
{
    if (m_drawing && m_terminal)
        std::fputc('\n', m_stream);
    m_drawing = false;
}

} // namespace TavrinUsdImport
