// The commands of file transfer: `ConectaFTP`, `BaixaArquivoFTP` and `PoeArquivoFTP`. A transfer holds the
// program up and lets its events through; who speaks to the server is a part of its own (ftp_client.h).
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "commands/command_table.h"
#include "system/ftp_client.h"
#include "system/transfer_progress.h"

namespace tessera {

class FtpCommands {
 public:
  // The run and the group live as long as the table. `partFolders`: where the system's parts may lie.
  FtpCommands(CommandTable& table, Run& run, std::vector<std::filesystem::path> partFolders,
              TransferProgress::Teller tellProgress);
  FtpCommands(const FtpCommands&) = delete;
  FtpCommands& operator=(const FtpCommands&) = delete;

 private:
  Value ConectaFTP(const WordCall& call);
  Value BaixaArquivoFTP(const WordCall& call);
  Value PoeArquivoFTP(const WordCall& call);

  FtpOrder NewOrder(const std::string& remote) const;
  // The server's answer to an order. Failure 68 where there is none. Nothing, behind its box, without the
  // part.
  std::optional<std::string> Execute(FtpOrder order, const std::string& shownName, bool& isWhole);
  FtpClient* Client();

  Run& run_;
  std::vector<std::filesystem::path> partFolders_;
  TransferProgress::Teller tellProgress_;
  std::optional<FtpServer> server_;  // of `ConectaFTP`
  std::unique_ptr<FtpClient> client_;
  bool isExecuting_ = false;
};

}  // namespace tessera
