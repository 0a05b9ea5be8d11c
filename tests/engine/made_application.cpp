#include "engine/made_application.h"

namespace tessera::test {

namespace {

constexpr int kSubs = 5;

}  // namespace

std::string MadeApplication::Term() {
  switch (Below(5)) {
    case 0:
      return AnyOf({"0", "7", "-3", "2.5", "99999999999", "1,5"});
    case 1:
      return AnyOf({"\"\"", "\"Ana\"", "\"João da Silva e Souza\"", "\"12\"", "\"a,b\"", "\"#\"", "\"(x)\""});
    case 2:
      return AnyOf({"i1 + 2", "d1 * 2", "F0(i1)", "F1(s1)", "s1 & \"x\"", "Comprimento(s1)", "i2 - 5"});
    case 3:
      return AnyOf({"T.Txt", "K.Valor", "M.Valor", "C.Txt", "Retorno", "ValorObjeto", "B.Nome", "B.Peso"});
    default:
      return AnyOf({"i1", "i2", "d1", "s1", "s2", "B.Idade", "B.Id", "falta"});
  }
}

std::string MadeApplication::Place() {
  return AnyOf({"0", "1", "2", "i1", "i2", "TotalRegistrosBD(\"B\")", "-1", "999999", "s1", "F0(1)"});
}

std::string MadeApplication::Record() {
  switch (Below(14)) {
    case 0:
    case 1:
    case 2:
      return "B." + AnyOf({"Nome", "Idade", "Peso"}) + " = " + Term();
    case 3:
    case 4:
    case 5:
      return "AdicionaRegistro B";
    case 6:
    case 7:
      return "LeRegistro B, " + Place();
    case 8:
      return "s2 = LeRegistro(\"B\", " + Place() + ")";
    case 9:
      return "AtualizaRegistro B, " + Place();
    case 10:
      return "ExcluiRegistro B, " + Place();
    case 11:
      return "OrdemBD B, " + AnyOf({"Nome", "Idade", "SEQUENCIAL", "Nome, Idade", "Falta", "Id"});
    case 12:
      return "i2 = Procure(\"B\", \"" + AnyOf({"PRIMEIRO", "ULTIMO", "PROXIMO", "QUALQUER"}) + "\", " +
             Term() + ")";
    default:
      return AnyOf({"FechaBD B", "AbreBD B", "AbreBD B", "LimpaBD B", "i1 = TotalRegistrosBD(\"B\")",
                    "AdicionaRegistro Falta", "AbreBD B"});
  }
}

std::string MadeApplication::Object() {
  switch (Below(7)) {
    case 0:
      return "Texto T.Txt = " + Term();
    case 1:
      return "Check K.Valor = " + Term();
    case 2:
      return "Moeda M.Valor = " + Term();
    case 3:
      return "Combo C.Txt = " + Term();
    case 4:
      return AnyOf({"Texto T.MoveFoco", "Moeda M.MoveFoco", "Botao A.MoveFoco"});
    case 5:
      return "Botao A.Ativo = " + AnyOf({"\"SIM\"", "\"NAO\"", "i1", "\"outra\""});
    default:
      return "Botao A.Coluna = " + AnyOf({"2", "i1", "i2 + 1", "s1"});
  }
}

std::string MadeApplication::Plain() {
  switch (Below(4)) {
    case 0:
      return "Escreva " + Term() + ", \"|\", " + Term();
    case 1:
      return AnyOf({"i1++", "i2--", "d1 += 1.5", "s1 = \"\""});
    case 2:
      return "Aguarde" + AnyOf({"", " CliqueBotao", " 20", ""});
    default:
      return AnyOf({"i1", "i2", "d1", "s1", "s2"}) + " = " + Term();
  }
}

void MadeApplication::Statement(const std::string& indent) {
  if (OneIn(6)) {
    Put(indent + "Se " + Term() + " " + AnyOf({"=", "<", "<>"}) + " " + Term());
    Put(indent + "  " + Record());
    Put(indent + "FimSe");
  } else {
    Put(indent + (OneIn(2) ? Record() : OneIn(2) ? Object() : Plain()));
  }
}

void MadeApplication::Sub(const std::string& name) {
  Put("Sub " + name);
  for (std::size_t count = 1 + Below(3); count > 0; --count) Statement("  ");
  Put("FimSub");
}

void MadeApplication::Act() {
  script_ += AnyOf({"clique A", "clique K", "clique", "texto T novo", "texto T 12,5", "valor K 1",
                    "valor M 2,5", "escolhe C 1", "foco T", "foco M", "digita x1", "digita 37", "tecla 13",
                    "tecla 9", "tecla 8", "espera 30", "espera 200", "mouse 3 4", "texto C livre"}) +
             "\n";
}

void MadeApplication::Make() {
  Put("Var rodada Inteiro, i1 Inteiro, i2 Inteiro, d1 Decimal, s1 String, s2 String");
  Put("BD B, dados");
  if (!OneIn(4)) Put("Id, AutoInc");
  Put("Nome, String, " + AnyOf({"12", "5", "30"}));
  Put("Idade, Inteiro");
  Put("Peso, Decimal");
  Put("FimBD");
  if (!OneIn(8)) Put("AbreBD B");
  Put("i1 = 1");
  Put("d1 = 2.5");
  Put("s1 = \"Bia\"");
  for (std::size_t count = Below(3); count > 0; --count) {
    Put("B.Nome = " + Term());
    Put("B.Idade = i1 + 4");
    Put("AdicionaRegistro B");
  }
  Put("Texto T, 2, 2, 20");
  Put("Check K, 4, 2, \"k\"");
  Put("Moeda M, 6, 2, 12");
  Put("Combo C, 8, 2, 12");
  Put("Combo C.Add \"um\"");
  Put("Combo C.Add \"dois\"");
  Put("Botao A, 10, 2, \"a\"");
  if (OneIn(2)) Put("Temporizador Olha.Ativa, " + AnyOf({"1", "3", "10"}));
  Put("Enquanto rodada < " + std::to_string(3 + Below(8)));
  for (int sub = 0; sub < kSubs; ++sub) Put("  S" + std::to_string(sub) + "()");
  Put("  Escreva i1, \";\", i2, \";\", d1, \";\", s1, \";\", B.Nome, \";\", B.Idade, \";\", T.Txt, \";\", "
      "M.Valor");
  Put("  rodada++");
  Put("Repita");
  Put("FimPrograma");
  for (int sub = 0; sub < kSubs; ++sub) Sub("S" + std::to_string(sub) + "()");
  Sub("Temporizador_Olha(20)");
  Put("Funcao F0(a Inteiro) Inteiro");
  Put("Retorne a * 2");
  Put("FimFuncao");
  Put("Funcao F1(a String) String");
  Put("  Var t String");
  Put("  t = a & \"!\"");
  Put("  Retorne t");
  Put("FimFuncao");
  for (std::size_t count = Below(40); count > 0; --count) Act();
}

}  // namespace tessera::test
