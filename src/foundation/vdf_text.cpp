#include "foundation/vdf_text.h"

#include <algorithm>
#include <optional>

namespace marlowick {
namespace {

// Real texts have four.
constexpr std::size_t kDeepest = 16;

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kEndsOfWord = " \t\r\n\"{}";

enum class Kind { Open, Close, Text };

struct Token {
    Kind kind;
    std::string text;
};

class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {}

    // Nothing at the end of the text and where a quotation mark is missing.
    std::optional<Token> next() {
        skipBlanks();
        if (rest_.empty()) {
            return std::nullopt;
        }
        const char first = rest_.front();
        if (first == '"') {
            return quoted();
        }
        if (first == '{' || first == '}') {
            rest_.remove_prefix(1);
            return Token{first == '{' ? Kind::Open : Kind::Close, {}};
        }
        return Token{Kind::Text, std::string(take(rest_.find_first_of(kEndsOfWord)))};
    }

  private:
    std::string_view take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    // A remark goes to the end of its line; a condition stands in brackets behind a value.
    void skipBlanks() {
        for (;;) {
            take(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
            if (rest_.starts_with("//")) {
                take(rest_.find('\n'));
            } else if (rest_.starts_with('[')) {
                take(rest_.find_first_of("]\n"));
                take(1);
            } else {
                return;
            }
        }
    }

    std::optional<Token> quoted() {
        Token token{Kind::Text, {}};
        take(1);
        for (;;) {
            token.text += take(std::min(rest_.find_first_of("\"\\"), rest_.size()));
            if (rest_.empty()) {
                return std::nullopt;
            }
            if (take(1) == "\"") {
                return token;
            }
            token.text += escaped();
        }
    }

    // What a backslash and the character behind it stand for.
    std::string escaped() {
        const std::string_view letter = take(1);
        if (letter == "\\" || letter == "\"") {
            return std::string(letter);
        }
        if (letter == "n" || letter == "t") {
            return letter == "n" ? "\n" : "\t";
        }
        return "\\" + std::string(letter);
    }

    std::string_view rest_;
};

}  // namespace

void readVdf(std::string_view text, const VdfValue& value) {
    Reader reader(text);
    std::vector<std::string> keys;
    std::optional<std::string> key;
    while (const std::optional<Token> token = reader.next()) {
        if (token->kind == Kind::Text && !key) {
            key = token->text;
            continue;
        }
        const bool closes = token->kind == Kind::Close;
        if (closes ? key || keys.empty() : !key || keys.size() == kDeepest) {
            return;
        }
        if (closes) {
            keys.pop_back();
            continue;
        }
        keys.push_back(*key);
        key.reset();
        if (token->kind == Kind::Text) {
            value(keys, token->text);
            keys.pop_back();
        }
    }
}

}  // namespace marlowick
