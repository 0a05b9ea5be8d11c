// The commands on files under aliases, the listing of a folder, and the texts of the side file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "commands/command_table.h"
#include "commands/file_table.h"
#include "commands/side_file.h"
#include "values/run.h"

namespace tessera {

class FileCommands {
 public:
  // The run and the group live as long as the table.
  FileCommands(CommandTable& table, Run& run);
  ~FileCommands() { CloseAll(); }
  FileCommands(const FileCommands&) = delete;
  FileCommands& operator=(const FileCommands&) = delete;

  // Closes the files of all aliases and frees the aliases: every way out of the program leads here.
  void CloseAll();

 private:
  Value AbreArquivo(const WordCall& call);
  Value FechaArquivo(const WordCall& call);
  Value LeArquivo(const WordCall& call);
  Value GravaArquivo(const WordCall& call);
  Value TamanhoArquivo(const WordCall& call);
  Value Diretorio(const WordCall& call);
  Value LeString(const WordCall& call);
  Value SalvaString(const WordCall& call);

  FileAlias* FindAlias(std::string_view command, std::string_view alias);
  int Open(const std::string& path, FileMode mode);
  std::string SideFilePath() const;

  Run& run_;
  FileTable table_;
  SideFile sideFile_;

  // The running search of `Diretorio`: the names found, and which is the next. At the end the last name has
  // been given and the empty text is due; behind it no search is running.
  std::vector<std::string> found_;
  std::size_t nextFound_ = 0;
  bool searching_ = false;
};

}  // namespace tessera
