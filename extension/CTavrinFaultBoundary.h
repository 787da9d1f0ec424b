#pragma once
// The application has no way to handle an exception thrown out of a call it
// makes on the plug-in: whatever the plug-in's code, the application's own
// callbacks or the standard library under them (running out of memory)
// throw is stopped at the call the application made.

// Runs call; false when it threw, whatever it threw.
template <typename Call>
bool RunContained(Call&& call) noexcept
{
    try {
        call();
        return true;
    } catch (...) {
        return false;
    }
}
