# Writes a C++ source that holds the bytes of INPUT as the array zunbrix::embedded::<SYMBOL>.
# Run as: cmake -DINPUT=... -DOUTPUT=... -DSYMBOL=... -P EmbedFile.cmake
file(READ "${INPUT}" hex HEX)
string(LENGTH "${hex}" hexLength)
math(EXPR byteCount "${hexLength} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "((0x[0-9a-f][0-9a-f],){16})" "\\1\n" bytes "${bytes}")
file(WRITE "${OUTPUT}"
"// Generated from ${INPUT}; edit that file instead.
#include <cstddef>

namespace zunbrix::embedded {
extern const unsigned char ${SYMBOL}[];
extern const std::size_t ${SYMBOL}Size;
const unsigned char ${SYMBOL}[] = {
${bytes}0x00};
const std::size_t ${SYMBOL}Size = ${byteCount};
} // namespace zunbrix::embedded
")
