// The profile calls on the platform's profile files, the folders that stand in for the
// Windows ones (both are the home, where bare profile names go), short path names
// (there are none) and the tick count.
#include "platform/clock.h"
#include "platform/paths.h"
#include "platform/profile.h"
#include "script/builtins_os.h"

namespace zol {
namespace {

NullableText nullable(const std::optional<std::string>& s) { return s ? NullableText(*s) : NullableText(nullptr); }

// GetProfileString and GetPrivateProfileString: section, key, default, buffer, size.
Val profileString(BArgs& a, std::string_view file) {
    const std::optional<std::string> section = optionalText(a, 0), key = optionalText(a, 1), def = optionalText(a, 2);
    const uint32_t size = a.p(4);
    if (size == 0) return intVal(0);
    char* buffer = reinterpret_cast<char*>(a.en.host(a.p(3), size));
    return intVal(static_cast<int64_t>(
        getProfileString(nullable(section), nullable(key), def ? def->c_str() : nullptr, buffer, size, file)));
}

Val profileInt(BArgs& a, std::string_view file) {
    const std::optional<std::string> section = optionalText(a, 0), key = optionalText(a, 1);
    const int def = static_cast<int>(a.i(2));
    if (!section || !key) return intVal(static_cast<uint32_t>(def));
    return intVal(static_cast<uint32_t>(getProfileInt(*section, *key, def, file)));
}

Val writeProfile(BArgs& a, std::string_view file) {
    const std::optional<std::string> section = optionalText(a, 0), key = optionalText(a, 1), value = optionalText(a, 2);
    return intVal(writeProfileString(nullable(section), nullable(key), nullable(value), file) ? 1 : 0);
}

// A null file name means "win.ini", as it does to the Windows calls.
std::string privateFile(BArgs& a, size_t k) { return optionalText(a, k).value_or(kWinIniFile); }

}  // namespace

std::optional<std::string> optionalText(BArgs& a, size_t k) {
    if (a.p(k) == 0) return std::nullopt;
    return a.s(k);
}

Val sizedAnswer(BArgs& a, size_t buf, std::string_view text) {
    const uint32_t size = a.p(buf + 1);
    if (size > 0) a.en.host(a.p(buf), size);
    if (text.size() >= size) return intVal(static_cast<int64_t>(text.size() + 1));
    putString(a.en, a.p(buf), std::string(text));
    return intVal(static_cast<int64_t>(text.size()));
}

Val bi_GetSystemDirectory(BArgs& a) { return sizedAnswer(a, 0, homeDir()); }

Val bi_GetWindowsDirectory(BArgs& a) { return sizedAnswer(a, 0, homeDir()); }

Val bi_GetShortPathName(BArgs& a) { return sizedAnswer(a, 1, a.s(0)); }

Val bi_GetTickCount(BArgs&) { return intVal(static_cast<uint32_t>(monotonicMilliseconds())); }

Val bi_GetProfileInt(BArgs& a) { return profileInt(a, kWinIniFile); }

Val bi_GetProfileString(BArgs& a) { return profileString(a, kWinIniFile); }

Val bi_WriteProfileString(BArgs& a) { return writeProfile(a, kWinIniFile); }

Val bi_GetPrivateProfileInt(BArgs& a) { return profileInt(a, privateFile(a, 3)); }

Val bi_GetPrivateProfileString(BArgs& a) { return profileString(a, privateFile(a, 5)); }

Val bi_WritePrivateProfileString(BArgs& a) { return writeProfile(a, privateFile(a, 3)); }

}  // namespace zol
