// The field readers and number writers one value at a time, beside the ways of the standard library.
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

#include "bulk/eight_columns.h"
#include "reader/number_writers.h"
#include "reader/numbers.h"

namespace
{
constexpr std::size_t how_many = 4096;  // few enough to stay in the caches, many enough to be no pattern to learn

// ---- what is read and written --------------------------------------------------------------------------------------

enum class Form { fixed, scientific, whole, integer };

std::vector<float> coordinates()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> any(-500.0f, 500.0f);
    std::vector<float> values(how_many);
    for (float& value : values) value = any(random);
    return values;
}

// Right-aligned fields, 16 columns wide, integers 8.
std::vector<std::string> fields(Form form)
{
    std::vector<std::string> texts;
    std::mt19937 random(2);
    std::uniform_int_distribution<int> identifier(1, 9'999'999);
    for (const float value : coordinates()) {
        char text[32];
        const auto real = static_cast<double>(value);
        switch (form) {
        case Form::fixed:
            std::snprintf(text, sizeof text, "%16.7f", real);
            break;
        case Form::scientific:
            std::snprintf(text, sizeof text, "%16.8e", real);
            break;
        case Form::whole:
            std::snprintf(text, sizeof text, "%16.1f", real);
            break;
        case Form::integer:
            std::snprintf(text, sizeof text, "%8i", identifier(random));
            break;
        }
        texts.emplace_back(text);
    }
    return texts;
}

// ---- reading -------------------------------------------------------------------------------------------------------

double by_field_value(std::string_view field)
{
    return field_value(field);
}

double by_atof(std::string_view field)
{
    char terminated[48];
    terminated[field.copy(terminated, sizeof terminated - 1)] = '\0';
    return std::atof(terminated);
}

double by_from_chars(std::string_view field)
{
    const std::size_t first = field.find_first_not_of(' ');
    double value = 0.0;
    if (first != std::string_view::npos) std::from_chars(field.data() + first, field.data() + field.size(), value);
    return value;
}

template <class Procedure>
void each_field(benchmark::State& state, const std::vector<std::string>& texts, Procedure procedure)
{
    for (auto _ : state)
        for (const std::string& text : texts) benchmark::DoNotOptimize(procedure(std::string_view(text)));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void read(benchmark::State& state, Form form, double (*reader)(std::string_view))
{
    each_field(state, fields(form), reader);
}

BENCHMARK_CAPTURE(read, fixed_field_value, Form::fixed, by_field_value);
BENCHMARK_CAPTURE(read, fixed_from_chars, Form::fixed, by_from_chars);
BENCHMARK_CAPTURE(read, fixed_atof, Form::fixed, by_atof);
BENCHMARK_CAPTURE(read, scientific_field_value, Form::scientific, by_field_value);
BENCHMARK_CAPTURE(read, scientific_from_chars, Form::scientific, by_from_chars);
BENCHMARK_CAPTURE(read, scientific_atof, Form::scientific, by_atof);
BENCHMARK_CAPTURE(read, whole_field_value, Form::whole, by_field_value);
BENCHMARK_CAPTURE(read, whole_from_chars, Form::whole, by_from_chars);
BENCHMARK_CAPTURE(read, whole_atof, Form::whole, by_atof);
BENCHMARK_CAPTURE(read, integer_field_value, Form::integer, by_field_value);
BENCHMARK_CAPTURE(read, integer_from_chars, Form::integer, by_from_chars);
BENCHMARK_CAPTURE(read, integer_atof, Form::integer, by_atof);

void printed_integer(benchmark::State& state)
{
    each_field(state, fields(Form::integer), [](std::string_view text) { return is_printed_integer(text.data()); });
}
BENCHMARK(printed_integer);

// ---- writing -------------------------------------------------------------------------------------------------------

template <class Value, class Writer>
void each_value(benchmark::State& state, const std::vector<Value>& values, Writer writer)
{
    std::array<char, 64> row{};
    for (auto _ : state) {
        for (const Value value : values) {
            benchmark::DoNotOptimize(writer(row.data(), value));
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

template <int digits>
void real_by_write_real(benchmark::State& state)
{
    each_value(state, coordinates(), [](char* to, float value) { return write_real<digits>(to, value, digits + 7); });
}

template <int digits>
void real_by_to_chars(benchmark::State& state)
{
    each_value(state, coordinates(), [](char* to, float value) {
        return std::to_chars(to, to + 64, static_cast<double>(value), std::chars_format::scientific, digits).ptr;
    });
}

template <int digits>
void real_by_snprintf(benchmark::State& state)
{
    each_value(state, coordinates(), [](char* to, float value) {
        return std::snprintf(to, 64, "%*.*e", digits + 7, digits, static_cast<double>(value));
    });
}

BENCHMARK(real_by_write_real<13>);
BENCHMARK(real_by_to_chars<13>);
BENCHMARK(real_by_snprintf<13>);
BENCHMARK(real_by_write_real<8>);
BENCHMARK(real_by_to_chars<8>);
BENCHMARK(real_by_write_real<3>);
BENCHMARK(real_by_to_chars<3>);

std::vector<std::int64_t> identifiers()
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> any(1, 9'999'999);
    std::vector<std::int64_t> values(how_many);
    for (std::int64_t& value : values) value = any(random);
    return values;
}

void integer_by_write_integer(benchmark::State& state)
{
    each_value(state, identifiers(), [](char* to, std::int64_t value) { return write_integer(to, value, 8); });
}

void integer_by_to_chars(benchmark::State& state)
{
    each_value(state, identifiers(),
               [](char* to, std::int64_t value) { return std::to_chars(to, to + 20, value).ptr; });
}

void integer_by_snprintf(benchmark::State& state)
{
    each_value(state, identifiers(),
               [](char* to, std::int64_t value) { return std::snprintf(to, 64, "%8li", static_cast<long>(value)); });
}

BENCHMARK(integer_by_write_integer);
BENCHMARK(integer_by_to_chars);
BENCHMARK(integer_by_snprintf);
}  // namespace
