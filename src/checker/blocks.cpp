#include "checker/blocks.h"

#include <algorithm>

#include "text/one_based.h"

namespace tessera::check {

namespace {

constexpr std::size_t kMostNestedSe = 21;

class BlockReader {
 public:
  explicit BlockReader(Context& context) : context_(context), forms_(context.outline.forms) {}

  BlockMap Read() {
    std::size_t routine = kNone;
    for (at_ = 0; at_ < forms_.size(); ++at_) {
      const Form form = forms_[at_].form;
      const bool isBoundary =
          form == Form::Funcao || form == Form::Sub || form == Form::FimFuncao || form == Form::FimSub;
      if (context_.outline.routineOf[at_] != routine || isBoundary) DropOpen();
      routine = context_.outline.routineOf[at_];
      const bool closes = form == Form::FimSe || form == Form::Repita;
      if (closes) Close(form == Form::FimSe ? Form::Se : Form::Enquanto);
      if (form == Form::CasoContrario) TakeAlternative();
      map_.around.push_back(open_.empty() ? kNone : open_.back());
      if (form == Form::Se || form == Form::Enquanto) Open(form);
    }
    DropOpen();
    return std::move(map_);
  }

 private:
  Tokens TokensAt(std::size_t statement) const {
    return context_.source.TokensOf(context_.source.statements()[statement]);
  }
  Span PlaceAt(std::size_t statement) const {
    return context_.source.SpanOf(TokensAt(statement).subspan(0, forms_[statement].tokens));
  }
  const Block& Row(std::size_t row) const { return map_.blocks[row]; }

  void Open(Form form) {
    map_.blocks.push_back({.form = form, .open = at_, .parent = open_.empty() ? kNone : open_.back()});
    open_.push_back(map_.blocks.size() - 1);
    const auto depth =
        std::count_if(open_.begin(), open_.end(), [&](std::size_t row) { return Row(row).form == Form::Se; });
    if (form == Form::Se && depth == kMostNestedSe + 1) {
      context_.Tell(rule::kDeepBlocks, PlaceAt(at_), "este Se está dentro de outros 21: o programa para aqui",
                    "leve os blocos de dentro a uma sub-rotina");
    }
  }

  void Close(Form form) {
    const auto matching =
        std::find_if(open_.rbegin(), open_.rend(), [&](std::size_t row) { return Row(row).form == form; });
    if (matching == open_.rend()) {
      context_.Tell(rule::kEndWithoutBlock, PlaceAt(at_),
                    Shown(WordOf(forms_[at_].form)) + " sem " + Shown(WordOf(form)) + " aberto acima",
                    "tire esta linha, ou escreva o " + std::string(WordOf(form)) + " que ela fecha");
      return;
    }
    const std::size_t index = static_cast<std::size_t>(open_.rend() - matching) - 1;
    // What was opened inside is either closed further down, and so crosses, or was forgotten.
    for (std::size_t i = open_.size(); i-- > index + 1;) {
      const std::size_t row = open_[i];
      if (IsClosedBelow(Row(row).form)) {
        context_.Tell(rule::kCrossedBlocks, PlaceAt(at_),
                      Shown(WordOf(forms_[at_].form)) + " fecha um bloco de fora enquanto " +
                          Shown(WordOf(Row(row).form)) + " está aberto",
                      "feche primeiro o bloco de dentro",
                      {{PlaceAt(Row(row).open), "aberto aqui, e ainda não fechado"}});
      } else {
        TellOpen(row, at_);
        open_.erase(open_.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
    map_.blocks[open_[index]].close = at_;
    open_.erase(open_.begin() + static_cast<std::ptrdiff_t>(index));
  }

  // True if more blocks of that kind are closed than opened from here to the routine's end.
  bool IsClosedBelow(Form form) const {
    const Form end = form == Form::Se ? Form::FimSe : Form::Repita;
    int surplus = 0;
    for (std::size_t i = at_ + 1; i < forms_.size(); ++i) {
      if (context_.outline.routineOf[i] != context_.outline.routineOf[at_]) break;
      if (forms_[i].form == form) --surplus;
      if (forms_[i].form == end && ++surplus > 0) return true;
    }
    return false;
  }

  void TakeAlternative() {
    const auto se = std::find_if(open_.rbegin(), open_.rend(),
                                 [&](std::size_t row) { return Row(row).form == Form::Se; });
    if (se == open_.rend()) {
      context_.Tell(rule::kEndWithoutBlock, PlaceAt(at_), "CasoContrario sem \"Se\" aberto acima",
                    "escreva o Se a que ele pertence, ou tire esta linha");
      return;
    }
    Block& block = map_.blocks[*se];
    if (se != open_.rbegin()) {
      const std::size_t inner = open_.back();
      if (!IsClosedBelow(Form::Enquanto) || Row(inner).form != Form::Enquanto) return;
      context_.Tell(rule::kCrossedBlocks, PlaceAt(at_),
                    "CasoContrario no meio de um Enquanto que o seu Se não contém inteiro",
                    "feche o Enquanto antes com Repita",
                    {{PlaceAt(Row(inner).open), "o Enquanto aberto é este"}});
      return;
    }
    if (!block.alternatives.empty()) {
      context_.Tell(
          rule::kEndWithoutBlock, PlaceAt(at_), "segundo CasoContrario do mesmo Se",
          "para mais de dois casos, ponha outro Se ... FimSe dentro do primeiro CasoContrario",
          {{PlaceAt(block.alternatives[0]), "o primeiro está aqui"}, {PlaceAt(block.open), "o Se é este"}});
    }
    block.alternatives.push_back(at_);
  }

  void TellOpen(std::size_t row, std::size_t where) {
    const std::string end(Row(row).form == Form::Se ? "FimSe" : "Repita");
    std::vector<Note> notes;
    if (where < forms_.size()) notes.push_back({PlaceAt(where), "aqui ele ainda está aberto"});
    context_.Tell(rule::kUnclosedBlock, PlaceAt(Row(row).open),
                  "este " + std::string(WordOf(Row(row).form)) + " não tem o seu " + end,
                  "ponha " + end + " onde o bloco termina", std::move(notes));
  }

  void DropOpen() {
    for (const std::size_t row : open_) TellOpen(row, at_);
    open_.clear();
  }

  Context& context_;
  const std::vector<FormedWord>& forms_;
  BlockMap map_;
  std::vector<std::size_t> open_;
  std::size_t at_ = 0;
};

}  // namespace

BlockMap CheckBlocks(Context& context) {
  return BlockReader(context).Read();
}

}  // namespace tessera::check
