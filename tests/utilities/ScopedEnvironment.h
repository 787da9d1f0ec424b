#pragma once

#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

// Sets environment variables for one test and restores them afterwards, and
// gives the test a fresh scratch folder.
class ScopedEnvironment {
public:
    ScopedEnvironment()
    {
        char pattern[] = "/tmp/tavrin-utilities-XXXXXX";
        const char* made = mkdtemp(pattern);
        scratch = made ? made : "";
    }
    ~ScopedEnvironment()
    {
        for (const auto& [name, value] : m_saved) {
            if (value)
                setenv(name.c_str(), value->c_str(), 1);
            else
                unsetenv(name.c_str());
        }
        std::error_code ignored;
        std::filesystem::remove_all(scratch, ignored);
    }
    void Set(const std::string& name, const std::string& value)
    {
        Save(name);
        setenv(name.c_str(), value.c_str(), 1);
    }
    void Unset(const std::string& name)
    {
        Save(name);
        unsetenv(name.c_str());
    }

    std::string scratch;

private:
    void Save(const std::string& name)
    {
        if (m_saved.count(name))
            return;
        const char* value = std::getenv(name.c_str());
        m_saved[name] = value ? std::optional<std::string>(value) : std::nullopt;
    }
    std::map<std::string, std::optional<std::string>> m_saved;
};
