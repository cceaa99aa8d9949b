// Choices that look random and are the same in every run and on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

class Random
{
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    std::uint32_t bits() { return static_cast<std::uint32_t>(engine_()); }
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(bits()) % limit; }
    bool one_in(std::size_t n) { return below(n) == 0; }

    template <class Choices>
    const auto& pick(const Choices& choices)
    {
        return choices[below(std::size(choices))];
    }

    // `length` characters of the alphabet.
    std::string text(std::size_t length, std::string_view alphabet)
    {
        std::string result(length, ' ');
        for (char& c : result) c = pick(alphabet);
        return result;
    }

private:
    std::mt19937 engine_;
};
