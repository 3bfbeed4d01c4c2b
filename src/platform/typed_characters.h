#pragma once
// Which character a key types, from what X calls the symbol on it.

namespace nubo {

/// The character of an X symbol; 0 for a symbol that types nothing, such as an arrow.
char32_t character_of_symbol(unsigned long symbol);

/// True for an accent that waits for its letter.
bool is_dead_symbol(unsigned long symbol);

/// A keyboard as a writer uses it: an accent types nothing, and the letter after it wears it.
class Typist {
public:
    /// What the key with that symbol types now: the letter with the accent, where there is such a letter; after an
    /// accent a blank types the accent itself. 0: nothing.
    char32_t strike(unsigned long symbol);

private:
    unsigned long accent_ = 0;  // that waits, 0 none
};

}  // namespace nubo
