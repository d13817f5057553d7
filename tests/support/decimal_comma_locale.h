// A process locale that writes one and a half as "1,5".
#pragma once

#include <clocale>
#include <string>

/// Sets the process locale to one with a decimal comma until the end of the scope, where the system has one.
class CDecimalCommaLocale {
public:
    CDecimalCommaLocale() : m_strBefore(std::setlocale(LC_ALL, nullptr)) {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "German_Germany.1252"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                break;
            }
        }
    }
    ~CDecimalCommaLocale() { (void)std::setlocale(LC_ALL, m_strBefore.c_str()); }
    CDecimalCommaLocale(const CDecimalCommaLocale&) = delete;
    CDecimalCommaLocale& operator=(const CDecimalCommaLocale&) = delete;

    /// False when the system has no such locale.
    bool IsSet() const { return std::localeconv()->decimal_point == std::string(","); }

private:
    std::string m_strBefore;
};
