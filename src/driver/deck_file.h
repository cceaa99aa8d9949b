// The deck of a run: opened once, and watched for changes.
#pragma once

#include <cstdio>
#include <string>

#include "driver/system.h"

// The file that file_names.deck leads to. While it is open, so is deck_source on it.
class DeckFile
{
public:
    DeckFile() = default;
    ~DeckFile() { close(); }
    DeckFile(const DeckFile&) = delete;
    DeckFile& operator=(const DeckFile&) = delete;

    // False when there is none, or when it cannot be read.
    bool open();

    // Why not: there is none, or this reason, in words.
    [[nodiscard]] bool missing() const;
    [[nodiscard]] std::string failure() const;

    // True when the open file, or what its name leads to, is no longer what it was: its size, its times, or the file
    // itself.
    [[nodiscard]] bool changed() const;

private:
    bool refuse(int error);
    void close();

    std::FILE* file_ = nullptr;
    FileState opened_;
    FileState named_;
    int error_ = 0;
};
