#pragma once

// Which non-Latin script (and 8-bit code page) the application's transcript text uses.

#include <vesk/export.hpp>

#include <array>

namespace vesk {

class VESK_API TranscriptData {
public:
    // Languages of transcript text.
    enum : int { LANGUAGE_NONE = 0, LANGUAGE_CYRILLIC = 1, LANGUAGE_GREEK = 2 };

    // One entry per byte value: whether the byte is a letter of the script.
    using LanguageTable = std::array<bool, 256>;
    static const LanguageTable m_cNullTable;       // no letters
    static const LanguageTable m_cCyrillicTable;   // the letters of code page 1251
    static const LanguageTable m_cGreekTable;      // the letters of code page 1253

    // No transcript: language 0, code page 0.
    TranscriptData();

    // Language 0, code page 0, no letters.
    void Disable();
    // Language 1, code page 1251.
    void SetToCyrillic();
    // Language 2, code page 1253.
    void SetToGreek();
    // 1 sets Cyrillic, 2 Greek, anything else disables.
    void SetToLanguage(int language);

    // 0 none, 1 Cyrillic, 2 Greek.
    int GetLanguage() const { return m_nLanguage; }
    // 0 none, 1251 or 1253.
    unsigned int GetCodePage() const { return m_nCodePage; }
    // The 256 entries of the language's letter table.
    const bool* GetPLanguageTable() const { return m_pLanguageTable->data(); }
    // Whether the language is Cyrillic.
    bool IsCyrillic() const { return m_nLanguage == LANGUAGE_CYRILLIC; }
    // Whether the language is Greek.
    bool IsGreek() const { return m_nLanguage == LANGUAGE_GREEK; }
    // Whether a transcript language is set.
    bool IsTranscript() const { return IsCyrillic() || IsGreek(); }
    // Whether the byte is a letter of the language.
    bool IsTranscriptChar(unsigned char c) const { return (*m_pLanguageTable)[c]; }

private:
    void Set(const LanguageTable& table, int language, unsigned int codePage);

    const LanguageTable* m_pLanguageTable;
    int m_nLanguage;
    unsigned int m_nCodePage;
};

} // namespace vesk
