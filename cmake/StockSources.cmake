# A step of the build: writes the source file that holds the system's own pictures, the vector form and the
# pixels of each.   cmake -DFOLDER=stock -DOUTPUT=stock_sources.cpp -P StockSources.cmake

# A file's bytes as a literal of the language: each is escaped, so that none reaches into the next.
function(literal file result)
  file(READ ${file} bytes HEX)
  string(LENGTH "${bytes}" digits)
  math(EXPR length "${digits} / 2")
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  set(${result} "{\"${bytes}\", ${length}}" PARENT_SCOPE)
endfunction()

file(GLOB drawings ${FOLDER}/*.svg)
list(SORT drawings)
set(rows "")
foreach(drawing IN LISTS drawings)
  get_filename_component(name ${drawing} NAME_WE)
  literal(${drawing} svg)
  literal(${FOLDER}/${name}.qoi qoi)
  string(APPEND rows "    {\"${name}\", ${svg},\n     ${qoi}},\n")
endforeach()
file(WRITE ${OUTPUT}
"#include \"windows/stock_sources.h\"

namespace tessera {

namespace {

constexpr StockSource kSources[] = {
${rows}};

}  // namespace

std::span<const StockSource> StockSources() { return kSources; }

}  // namespace tessera
")
