#pragma once

#include <cstddef>
#include <string_view>

namespace kelvo::rtf {

enum class TokenKind {
    End,
    GroupStart,
    GroupEnd,
    Word,   ///< `\word`, perhaps with a number
    Symbol, ///< `\` and one character that is no letter
    Byte,   ///< `\'hh`
    Text,   ///< bytes up to the next of `\`, `{`, `}` and line end
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string_view text; ///< the word, the symbol or the bytes
    bool hasNumber = false;
    int number = 0;            ///< of a word, held within the range of int; of a byte, 0 to 255
    std::string_view binary{}; ///< the bytes that follow `\binN`
};

/// The value of a hexadecimal digit; -1 = it is none.
int HexDigit(char c);

/// Cuts RTF into tokens. Line ends between tokens are dropped; the bytes of `\binN` are part of its token.
class Tokens {
  public:
    explicit Tokens(std::string_view bytes) : bytes_(bytes) {}

    /// `End` when nothing is left, again and again.
    Token Next();

  private:
    Token AfterBackslash();
    Token HexByte();
    Token ControlWord();
    std::string_view TakeBinary(int count);
    bool AtEnd() const { return at_ >= bytes_.size(); }

    std::string_view bytes_;
    std::size_t at_ = 0;
};

} // namespace kelvo::rtf
