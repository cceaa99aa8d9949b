# Writes WRITTEN: the bytes of FILE as a constant SYMBOL. A byte is a number, so that no text can end the literal.
file(READ "${FILE}" bytes HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
string(REGEX REPLACE "((0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],)(0x[0-9a-f][0-9a-f],))" "\\1\n" bytes "${bytes}")
file(WRITE "${WRITTEN}" "#include <string_view>
namespace
{
constexpr unsigned char bytes[] = {
${bytes}
0};
}
extern const std::string_view ${SYMBOL};
const std::string_view ${SYMBOL}{reinterpret_cast<const char*>(bytes), sizeof bytes - 1};
")
