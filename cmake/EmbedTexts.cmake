# Writes OUTPUT, a source file with one text for every file of FILES: a table of names and contents, in order.
# Run as a script: cmake -DOUTPUT=... -DFILES=a;b -P EmbedTexts.cmake
set(rows "")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} text)
  string(APPEND rows "    {\"${name}\", R\"~(${text})~\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"windows/stock_sources.h\"

namespace tessera {

namespace {

constexpr StockSource kSources[] = {
${rows}};

}  // namespace

std::span<const StockSource> StockSources() {
  return kSources;
}

}  // namespace tessera
")
