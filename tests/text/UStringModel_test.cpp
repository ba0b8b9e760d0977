// Random operation sequences on a UString of ASCII characters against the byte-string model:
// the wide members follow the same rules, so on ASCII text they must give the same results.
#include "models/sstring_model.hpp"

#include "UStringTestUtil.hpp"

#include <gtest/gtest.h>

#include <random>

using namespace sstring_model;
using vesk::LineEnd;
using vesk::UString;

namespace {

std::u16string Wide(const std::string& s)
{
    return std::u16string(s.begin(), s.end());
}

std::string Narrow(const UString& s)
{
    const std::u16string text = vesk::test::Text(s);
    return std::string(text.begin(), text.end());
}

} // namespace

TEST(UStringModel, RandomOperationSequencesAgreeWithTheModel)
{
    std::mt19937 random(20240607);
    // Separators, blanks, line ends and zeros in a small alphabet make matches frequent.
    const char alphabet[] = {'a', 'b', 'A', 'B', ',', ' ', '\r', '\n', '\0'};
    const auto text = [&](uint32_t most) {
        std::string s(random() % (most + 1), ' ');
        for (char& c : s)
            c = alphabet[random() % sizeof alphabet];
        return s;
    };
    for (int run = 0; run < 400; ++run) {
        std::string model = text(12);
        UString s{Wide(model)};
        for (int step = 0; step < 30 && model.size() < 2000; ++step) {
            const uint32_t a = random() % 16;
            const uint32_t b = random() % 16;
            const std::string what = text(3);
            const std::string with = text(4);
            const UString uWhat{Wide(what)};
            const UString uWith{Wide(with)};
            const char c = b % 3 == 0 ? ',' : model.empty() ? ' ' : model[b % model.size()];
            const std::string& t = model;
            const int op = int(random() % 9);
            SCOPED_TRACE(::testing::Message() << "run " << run << ", step " << step << ", op " << op);
            switch (op) {
            case 0:
                ASSERT_EQ(s.Search(uWhat, a), Search(t, what, a, false));
                ASSERT_EQ(s.NoCaseSearch(uWhat, a), Search(t, what, a, true));
                ASSERT_EQ(s.SearchBackward(uWhat, a), a < t.size() ? SearchBackward(t, what, a, false) : NOTFOUND);
                ASSERT_EQ(s.SearchFromEnd(uWhat), SearchBackward(t, what, t.size(), false));
                break;
            case 1: {
                ASSERT_EQ(s.GetTokenCount(c), t.empty() ? 0 : 1 + std::count(t.begin(), t.end(), c));
                ASSERT_EQ(Narrow(s.GetToken(a % 5, c)), Token(t, a % 5, c));
                ASSERT_EQ(s.GetTokenPos(a % 5, c), TokenPos(t, a % 5, c));
                const std::vector<UString> tokens = s.GetAllTokens(c);
                for (size_t i = 0; i < tokens.size(); ++i)
                    ASSERT_EQ(Narrow(tokens[i]), Trimmed(Token(t, i, c)));
                break;
            }
            case 2: {
                Model m{model};
                Insert(m, Model{with}, a);
                model = m.text;
                s.Insert(uWith, a);
                break;
            }
            case 3: {
                const std::string part = a < t.size() && b != 0 ? t.substr(a, b) : std::string();
                ASSERT_EQ(Narrow(s.Copy(a, b)), part);
                Model m{model};
                Erase(m, a, b);
                model = m.text;
                ASSERT_EQ(Narrow(b % 2 ? s.Cut(a, b) : (s.Erase(a, b), UString{Wide(part)})), part);
                break;
            }
            case 4:
                model.erase(std::remove(model.begin(), model.end(), c), model.end());
                s.EraseAllChars(c);
                if (b % 2 == 0) {
                    model = Trimmed(model);
                    s.Trim(u' ');
                }
                break;
            case 5:
            case 6: {
                Model m{model};
                const bool noCase = op == 6;
                ReplaceAllPhrases(m, Model{what}, Model{with}, a, noCase ? UINT64_MAX : uint64_t(a) + b, noCase);
                model = m.text;
                if (noCase)
                    s.ReplaceAllPhrasesI(uWhat, uWith, int(a));
                else
                    s.ReplaceAllPhrases(uWhat, uWith, int(a), int(b));
                break;
            }
            case 7:
                if (!what.empty()) {
                    std::string out;
                    for (size_t p = 0; p < t.size();) {
                        const uint32_t q = Search(t, what, uint32_t(p), false);
                        out += t.substr(p, q == NOTFOUND ? std::string::npos : q - p);
                        if (q == NOTFOUND)
                            break;
                        out += with;
                        p = q + what.size();
                    }
                    model = out;
                }
                s.ReplaceAllPhrases2(uWhat, uWith);
                break;
            default:
                model = ConvertLineEnd(t, int(a % 3));
                s.ConvertLineEnd(LineEnd(a % 3));
                break;
            }
            ASSERT_EQ(Narrow(s), model);
        }
    }
}
