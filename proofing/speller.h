// The spelling checker: a hunspell dictionary, the user's own dictionary in the home,
// and the words the user told to ignore for this run. Words are in the editor's code
// page (Windows-1252); the dictionary may be in another one.
#pragma once
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zol {

// Where a dictionary's two files are, or why there are none.
struct DictionaryFiles {
    std::string language;  // as the user named it, for messages
    std::string aff, dic;  // empty when not found
};
// The language a "MainLexicon" value names: "spellus.lex" and "spelluk.lex" are the
// historic names of the American and British English lexicons.
std::string lexiconLanguage(std::string_view mainLexicon);
// Looks for LANG.aff and LANG.dic in the home's "dict" folder, then the system's
// hunspell folders; a value with a "/" or ending in ".dic" is the dictionary's path.
DictionaryFiles findDictionary(std::string_view mainLexicon);
// The Debian package that holds a language's dictionary ("hunspell-en-us").
std::string dictionaryPackage(std::string_view language);

class Speller {
public:
    Speller();
    ~Speller();
    Speller(const Speller&) = delete;
    Speller& operator=(const Speller&) = delete;

    // Loads the dictionary and the user dictionary; false with a message for the user.
    bool load(const DictionaryFiles& files, const std::string& userDictPath, std::string& error);
    bool loaded() const;
    const std::string& userDictPath() const { return userPath_; }

    bool correct(std::string_view word);
    std::vector<std::string> suggest(std::string_view word);
    // For the rest of the run.
    void ignore(std::string_view word);
    // Into the user dictionary; false (the word still accepted for this run) when the
    // file cannot be written.
    bool add(std::string_view word);

private:
    std::string toDictionary(std::string_view word) const;
    std::string fromDictionary(std::string_view word) const;

    struct Handle;
    std::unique_ptr<Handle> h_;
    bool utf8_ = false;
    std::string userPath_;
    std::set<std::string, std::less<>> ignored_;
    std::unordered_map<std::string, bool> cache_;
};

// The process's checker, loaded once from the settings on first use; null when its
// dictionary cannot be had, with the reason in error.
Speller* speller(std::string* error = nullptr);
// The settings changed: the next speller() loads again.
void resetSpeller();

}  // namespace zol
