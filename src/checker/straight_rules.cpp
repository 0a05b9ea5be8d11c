#include "checker/straight_rules.h"

#include <algorithm>
#include <map>

#include "text/one_based.h"

namespace tessera::check {

namespace {

// Goes through an editor. At whatever might be entered or left, or lets other lines run, it forgets all.
class StraightRun {
 public:
  explicit StraightRun(Context& context) : context_(context) {}

  void Take(Form form, Tokens tokens) {
    const bool mayForget = !opened_.empty() || !closed_.empty();
    if (mayForget && (form != Form::Other || LetsOthersIn(tokens))) {
      opened_.clear();
      closed_.clear();
    }
    if (form != Form::Other) return;
    TakeFiles(tokens);
    TakeWindow(tokens);
  }

 private:
  bool LetsOthersIn(Tokens tokens) const {
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
      return token.IsName() &&
             (token.upper == "AGUARDE" || context_.names.FindSubAnyCase(token.upper) != nullptr ||
              context_.names.FindFunctionAnyCase(token.upper) != nullptr);
    });
  }

  void TakeFiles(Tokens tokens) {
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
      const bool opens = tokens[i].IsName() && tokens[i].upper == "ABREARQUIVO";
      const bool closes = tokens[i].IsName() && tokens[i].upper == "FECHAARQUIVO";
      if (!opens && !closes) continue;
      const Token& alias = tokens[tokens[i + 1].Is('(') && i + 2 < tokens.size() ? i + 2 : i + 1];
      const bool isPlain = alias.IsLiteral() || context_.names.FindVariable(alias.upper) == nullptr;
      if (!isPlain) {
        opened_.clear();
      } else if (closes) {
        opened_.erase(Upper(Bare(alias)));
      } else if (const auto [row, isNew] = opened_.try_emplace(Upper(Bare(alias)), &alias); !isNew) {
        TellOpen(alias, *row->second);
      }
    }
  }

  void TellOpen(const Token& alias, const Token& before) {
    context_.Tell(rule::kNeverClosed, alias,
                  "o arquivo " + Shown(Bare(alias)) +
                      " já está aberto: o apelido continua a ser do primeiro, e este não se alcança",
                  "ponha FechaArquivo " + ToUtf8(Bare(alias)) + " antes, ou dê outro apelido",
                  {{context_.source.SpanOf(before), "aberto aqui"}});
  }

  void TakeWindow(Tokens tokens) {
    if (tokens.size() < 2 || tokens[0].upper != "NOVAJANELA" || !tokens[1].IsName()) return;
    if (tokens[1].upper == "DEFINE") {
      if (tokens.size() > 3) closed_.erase(Upper(Bare(tokens[3])));
      return;
    }
    const std::string window(tokens[1].upper.substr(0, tokens[1].upper.find('.')));
    if (tokens[1].upper.ends_with(".DESATIVA")) closed_.emplace(window, &tokens[1]);
    const auto closed = closed_.find(window);
    if (!tokens[1].upper.ends_with(".ATIVA") || closed == closed_.end()) return;
    const std::string_view name = Left(tokens[1].text, tokens[1].text.find('.'));
    context_.Tell(
        rule::kUnknownObject, tokens[1],
        "a janela " + Shown(name) + " foi fechada, e o seu nome ficou livre: a instrução não faz nada",
        "defina-a de novo antes: NovaJanela Define, " + ToUtf8(name),
        {{context_.source.SpanOf(*closed->second), "fechada aqui"}});
  }

  Context& context_;
  std::map<std::string, const Token*> opened_;  // by alias
  std::map<std::string, const Token*> closed_;  // by window
};

}  // namespace

void CheckStraightRuns(Context& context) {
  StraightRun run(context);
  for (std::size_t i = 0; i < context.outline.forms.size(); ++i)
    run.Take(context.outline.forms[i].form, context.source.TokensOf(context.source.statements()[i]));
}

}  // namespace tessera::check
