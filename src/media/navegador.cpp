#include "media/navegador.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "platform/file_store.h"
#include "text/code_page.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera::media {

namespace {

constexpr std::string_view kNavegador = "Navegador";
constexpr std::string_view kHome = "about:blank";
constexpr ControlPlace kBrowserSize = {.Width = 320, .Height = 240};

// The addresses that a browser without pages walks through.
class PagesInMemory final : public Pages {
 public:
  explicit PagesInMemory(MediaHost& host) : host_(host) {}

  void Navigate(const Address& address) override {
    history_.resize(history_.empty() ? 0 : place_ + 1);
    history_.push_back(address.written);
    GoTo(history_.size() - 1);
  }
  void GoBack() override {
    if (place_ > 0) GoTo(place_ - 1);
  }
  void GoForward() override {
    if (place_ + 1 < history_.size()) GoTo(place_ + 1);
  }
  void Stop() override {}
  void Refresh() override {}

 private:
  void GoTo(std::size_t place) {
    place_ = place;
    host_.TellAddress(history_[place_]);
  }

  MediaHost& host_;
  std::vector<std::string> history_;
  std::size_t place_ = 0;
};

// A scheme as RFC 3986 has it, of more than a drive's one letter. What stands before a port is a host, not a
// scheme.
bool HasScheme(std::string_view address) {
  const std::size_t colon = address.find(':');
  if (colon == std::string_view::npos || colon < 2) return false;
  const std::string_view scheme = address.substr(0, colon);
  const auto isOfScheme = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+' || c == '-' || c == '.';
  };
  if (!std::all_of(scheme.begin(), scheme.end(), isOfScheme)) return false;
  const std::string_view rest = address.substr(colon + 1);
  return rest.empty() || std::isdigit(static_cast<unsigned char>(rest.front())) == 0;
}

}  // namespace

// The control

NavegadorControl::NavegadorControl(Form& form, ControlEvents& events)
    : Control(form, events, 0, kBrowserSize) {}

NavegadorControl::~NavegadorControl() = default;

void NavegadorControl::Activate(void* viewEntry) {
  viewEntry_ = viewEntry;
  Refresh();
}

void NavegadorControl::Activate(std::unique_ptr<Pages> memory) {
  memory_ = std::move(memory);
  pages = memory_.get();
}

void NavegadorControl::FollowWindow(double width, double height) {
  ControlPlace place = Place();
  place.Width = std::max(place.Width + width, 0.0);
  place.Height = std::max(place.Height + height, 0.0);
  Move(place);
}

// The command

Navegador::Navegador(CommandTable& table, Run& run, WindowModel& windows, Media& media)
    : run_(run), windows_(windows), media_(media) {
  constexpr MemberRow<Navegador> kRows[] = {{"Navegador", &Navegador::Do}};
  Bind(table, kRows, *this);
}

Value Navegador::Do(const WordCall& call) {
  constexpr KeywordTable<Navegador>::Row kActs[] = {
      {"ATIVA", &Navegador::Ativa},         {"URL", &Navegador::Url},     {"VOLTAR", &Navegador::Voltar},
      {"AVANCAR", &Navegador::Avancar},     {"PARAR", &Navegador::Parar}, {"HOME", &Navegador::Home},
      {"ATUALIZAR", &Navegador::Atualizar},
  };
  static const KeywordTable<Navegador> kForms(FindWord("Navegador")->more.keywords, {kActs});
  return DoKeyword(*this, kForms, call);
}

NavegadorControl& Navegador::Current() {
  Form& form = windows_.CurrentForm();
  if (!form.Controls().Element(kNavegador, 0)) {
    form.LoadControl(kNavegador, std::make_shared<NavegadorControl>(form, *this));
    form.Controls().Element(kNavegador, 0)->SetName(kNavegador);
  }
  return static_cast<NavegadorControl&>(*form.Controls().Element(kNavegador, 0));
}

void Navegador::Ativa(const ArgumentView& arguments) {
  const ControlPlace place = {.Left = arguments.Number("coluna").ToDouble() * windows_.TamCol,
                              .Top = arguments.Number("linha").ToDouble() * windows_.TamLin,
                              .Width = arguments.Number("largura").ToDouble() * windows_.TamCol,
                              .Height = arguments.Number("altura").ToDouble() * windows_.TamLin};
  NavegadorControl& control = Current();
  control.Move(place);
  Activate(control);
  if (control.pages == nullptr) return;
  control.SetVisible(true);
  const std::string waiting = std::exchange(control.WaitingUrl, {});
  if (!waiting.empty()) control.pages->Navigate(AddressOf(waiting));
}

void Navegador::Activate(NavegadorControl& control) {
  if (control.pages != nullptr) return;
  if (!media_.host().Plays()) {
    control.Activate(std::make_unique<PagesInMemory>(media_.host()));
  } else if (void* const entry = media_.PageViews()) {
    control.Activate(entry);
  }
}

void Navegador::Url(const ArgumentView& arguments) {
  const std::string url = arguments.Text("endereço");
  NavegadorControl& control = Current();
  if (control.pages != nullptr) {
    control.pages->Navigate(AddressOf(url));
  } else {
    control.WaitingUrl = url;
  }
}

// OPEN: an address without a scheme that names a file is that file, and else one of the net, asked for by the
// safe protocol.
Address Navegador::AddressOf(const std::string& url) const {
  if (HasScheme(url)) return {.written = url, .target = ToUtf8(url)};
  std::string place = run_.paths.SystemPath(url);
  int error = 0;
  if (run_.host.files.IsFile(place, error)) {
    return {.written = url, .target = std::move(place), .isFile = true};
  }
  return {.written = url, .target = "https://" + ToUtf8(url)};
}

void Navegador::Voltar(const ArgumentView&) {
  if (Pages* pages = Current().pages) pages->GoBack();
}

void Navegador::Avancar(const ArgumentView&) {
  if (Pages* pages = Current().pages) pages->GoForward();
}

void Navegador::Parar(const ArgumentView&) {
  if (Pages* pages = Current().pages) pages->Stop();
}

void Navegador::Home(const ArgumentView&) {
  if (Pages* pages = Current().pages) pages->Navigate(AddressOf(std::string(kHome)));
}

void Navegador::Atualizar(const ArgumentView&) {
  if (Pages* pages = Current().pages) pages->Refresh();
}

}  // namespace tessera::media
