#include "qtpaper/print_queues.h"

#include <cups/cups.h>

#include <memory>

namespace tessera::qtpaper {

namespace {

// The queues as the print system tells them.
class Queues {
 public:
  Queues() : count_(cupsGetDests2(CUPS_HTTP_DEFAULT, &queues_)) {}
  ~Queues() { cupsFreeDests(count_, queues_); }
  Queues(const Queues&) = delete;
  Queues& operator=(const Queues&) = delete;

  const cups_dest_t* begin() const { return queues_; }
  const cups_dest_t* end() const { return queues_ + count_; }

 private:
  cups_dest_t* queues_ = nullptr;
  int count_;
};

class Options {
 public:
  Options() = default;
  ~Options() { cupsFreeOptions(count_, options_); }
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;

  void Add(const char* name, const char* value) { count_ = cupsAddOption(name, value, count_, &options_); }
  int count() const { return count_; }
  cups_option_t* all() const { return options_; }

 private:
  cups_option_t* options_ = nullptr;
  int count_ = 0;
};

}  // namespace

std::vector<std::string> CupsQueues::Names() {
  std::vector<std::string> names;
  for (const cups_dest_t& queue : Queues()) {
    if (queue.instance == nullptr) names.emplace_back(queue.name);
  }
  return names;
}

std::string CupsQueues::Default() {
  for (const cups_dest_t& queue : Queues()) {
    if (queue.is_default != 0) return queue.name;
  }
  return {};
}

// Places on the paper are those of the document, on a queue of other paper too: nothing is made to fit.
bool CupsQueues::Send(const std::string& queue, const std::string& title, std::string_view pdf) {
  Options options;
  options.Add("print-scaling", "none");
  const int job =
      cupsCreateJob(CUPS_HTTP_DEFAULT, queue.c_str(), title.c_str(), options.count(), options.all());
  if (job <= 0) return false;
  bool isSent = cupsStartDocument(CUPS_HTTP_DEFAULT, queue.c_str(), job, title.c_str(), CUPS_FORMAT_PDF, 1) ==
                HTTP_STATUS_CONTINUE;
  isSent = isSent && cupsWriteRequestData(CUPS_HTTP_DEFAULT, pdf.data(), pdf.size()) == HTTP_STATUS_CONTINUE;
  isSent = isSent && cupsFinishDocument(CUPS_HTTP_DEFAULT, queue.c_str()) <= IPP_STATUS_OK_EVENTS_COMPLETE;
  if (!isSent) cupsCancelJob2(CUPS_HTTP_DEFAULT, queue.c_str(), job, 0);
  return isSent;
}

}  // namespace tessera::qtpaper
