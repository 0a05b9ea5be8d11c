// Every rule of the checker, one row each: its code, how grave it is, and its title in the manual, where each
// has a section of its own (docs/manual/avisos.md).
#pragma once

#include <span>

#include "checker/finding.h"

namespace tessera::check {

inline constexpr Severity kError = Severity::Error;
inline constexpr Severity kWarning = Severity::Warning;

namespace rule {

// Words and signs.
inline constexpr Rule kUnknownWord{"T0101", kError, "Palavra desconhecida no começo da linha"};
inline constexpr Rule kBlockSpelling{"T0102", kError, "Palavra de bloco escrita de outro jeito"};
inline constexpr Rule kUnclosedText{"T0103", kError, "Aspas sem par"};
inline constexpr Rule kUnpairedParen{"T0104", kError, "Parêntese sem par"};
inline constexpr Rule kBracket{"T0105", kError, "Colchetes no lugar de parênteses"};
inline constexpr Rule kTab{"T0106", kError, "Tabulação no começo da linha"};
inline constexpr Rule kForeignSign{"T0107", kError, "Sinal que a linguagem não tem"};
inline constexpr Rule kCommandParens{"T0108", kError, "Parênteses em um comando"};
inline constexpr Rule kHiddenWord{"T0109", kError, "Texto ou nome com uma palavra de controle dentro"};
inline constexpr Rule kTextParen{"T0110", kWarning, "Texto que perde um parêntese"};

// Blocks.
inline constexpr Rule kUnclosedBlock{"T0201", kError, "Bloco sem fim"};
inline constexpr Rule kEndWithoutBlock{"T0202", kError, "Fim sem bloco"};
inline constexpr Rule kCrossedBlocks{"T0203", kError, "Blocos cruzados"};
inline constexpr Rule kCountedText{"T0204", kError, "Texto contado como palavra de bloco"};
inline constexpr Rule kBehindBlockWord{"T0205", kError, "Texto atrás de uma palavra de bloco"};
inline constexpr Rule kDeepBlocks{"T0206", kError, "Blocos fundos demais"};

// Names.
inline constexpr Rule kUndeclared{"T0301", kError, "Variável não declarada"};
inline constexpr Rule kOtherType{"T0302", kWarning, "Variável declarada de novo com outro tipo"};
inline constexpr Rule kHidesCommand{"T0303", kWarning, "Variável que esconde um comando"};
inline constexpr Rule kUnknownType{"T0304", kError, "Tipo desconhecido"};
inline constexpr Rule kBadDeclaration{"T0305", kError, "Declaração malformada"};
inline constexpr Rule kNeverRead{"T0306", kWarning, "Variável que nunca é lida"};
inline constexpr Rule kNameEndsInWord{"T0307", kError, "Nome que termina com o nome de uma função"};
inline constexpr Rule kAccentInSum{"T0308", kError, "Nome com acento em uma conta"};
inline constexpr Rule kUsedBefore{"T0309", kError, "Variável usada antes de ser declarada"};

// Conditions.
inline constexpr Rule kConditionParens{"T0401", kError, "Parênteses em volta de uma condição"};
inline constexpr Rule kConditionShape{"T0402", kError, "Condição incompleta"};
inline constexpr Rule kTextAgainstNumber{"T0403", kError, "Texto à esquerda de um número"};
inline constexpr Rule kConnective{"T0404", kError, "E e OU em minúsculas"};
inline constexpr Rule kBehindCondition{"T0405", kError, "Texto atrás da condição"};
inline constexpr Rule kConnectiveInName{"T0406", kError, "Nome com OU dentro em uma condição"};

// Expressions.
inline constexpr Rule kDecimalComma{"T0501", kError, "Vírgula decimal em um número"};
inline constexpr Rule kGroupPoints{"T0502", kError, "Pontos de milhar em um número"};
inline constexpr Rule kSignBehindOperator{"T0503", kError, "Sinal atrás de um operador"};
inline constexpr Rule kBehindParen{"T0504", kWarning, "Conta que entra no parêntese"};
inline constexpr Rule kJoinedElsewhere{"T0505", kError, "Textos juntados onde não se junta"};
inline constexpr Rule kJoinWithoutBlanks{"T0506", kError, "& sem brancos"};
inline constexpr Rule kLostInJoin{"T0507", kError, "Parte que se perde ao juntar"};
inline constexpr Rule kTextInSum{"T0508", kError, "Texto em uma conta"};
inline constexpr Rule kLostBehindCall{"T0509", kError, "Texto perdido atrás de uma chamada"};
inline constexpr Rule kComputedIndex{"T0510", kError, "Índice calculado"};
inline constexpr Rule kIndexBeyond{"T0511", kError, "Índice além do vetor"};
inline constexpr Rule kOutsideText{"T0512", kError, "Texto de fora no meio de uma expressão"};
inline constexpr Rule kJoinInText{"T0513", kError, "& dentro de um texto"};
inline constexpr Rule kExpressionShape{"T0514", kError, "Expressão malformada"};
inline constexpr Rule kTextIntoNumber{"T0515", kError, "Texto em uma variável de números"};
inline constexpr Rule kNumberSize{"T0516", kError, "Número pequeno ou grande demais em uma chamada"};

// Commands and functions of the language.
inline constexpr Rule kTooFew{"T0601", kError, "Faltam valores"};
inline constexpr Rule kTooMany{"T0602", kError, "Valores demais"};
inline constexpr Rule kWrongKind{"T0603", kError, "Valor de outro tipo"};
inline constexpr Rule kUnknownKeyword{"T0604", kError, "Palavra-chave desconhecida"};
inline constexpr Rule kUnknownSuffix{"T0605", kError, "Sufixo desconhecido"};
inline constexpr Rule kFunctionCase{"T0606", kError, "Função em outra caixa"};
inline constexpr Rule kFunctionParens{"T0607", kError, "Função sem parênteses"};
inline constexpr Rule kUnknownFunction{"T0608", kError, "Função desconhecida"};
inline constexpr Rule kNoValue{"T0609", kError, "Comando que não dá um valor"};
inline constexpr Rule kLostValue{"T0610", kWarning, "Valor que se perde"};
inline constexpr Rule kFormat{"T0611", kError, "Formato desconhecido"};
inline constexpr Rule kCutAtComma{"T0612", kError, "Chamada cortada na vírgula"};
inline constexpr Rule kUnknownObject{"T0613", kError, "Objeto desconhecido"};
inline constexpr Rule kStateCase{"T0614", kError, "SIM e NAO em minúsculas"};
inline constexpr Rule kObjectIsVariable{"T0615", kWarning, "Objeto com o nome de uma variável"};
inline constexpr Rule kWithoutCommand{"T0616", kWarning, "Propriedade mudada sem o comando"};

// Routines of the program.
inline constexpr Rule kUnclosedRoutine{"T0701", kError, "Rotina sem fim"};
inline constexpr Rule kRoutineHead{"T0702", kError, "Cabeçalho de rotina malformado"};
inline constexpr Rule kRoutineInTheWay{"T0703", kError, "Rotina antes de FimPrograma"};
inline constexpr Rule kFunctionAsCommand{"T0704", kError, "Função usada como comando"};
inline constexpr Rule kSubCall{"T0705", kError, "Sub-rotina chamada de outro jeito"};
inline constexpr Rule kArgumentCount{"T0706", kError, "Número de argumentos"};
inline constexpr Rule kRecursion{"T0707", kWarning, "Rotina que chama a si mesma"};
inline constexpr Rule kSecondReturn{"T0708", kWarning, "Segundo Retorne"};
inline constexpr Rule kNoReturn{"T0709", kError, "Função sem Retorne"};
inline constexpr Rule kDecimalResult{"T0710", kWarning, "Resultado Decimal de uma função"};
inline constexpr Rule kParameterName{"T0711", kError, "Parâmetro que não é reconhecido"};
inline constexpr Rule kParameterInText{"T0712", kWarning, "Texto com o nome de um parâmetro"};
inline constexpr Rule kRoutineNames{"T0713", kError, "Nomes de rotinas que se confundem"};
inline constexpr Rule kHiddenRoutine{"T0714", kError, "Rotinas que deixam de ser vistas"};
inline constexpr Rule kReturnOutside{"T0715", kWarning, "Retorne fora de uma função"};

// The course of the program.
inline constexpr Rule kNoLabel{"T0801", kError, "Rótulo que não existe"};
inline constexpr Rule kDoubledLabel{"T0802", kError, "Rótulo repetido"};
inline constexpr Rule kJumpIntoBlock{"T0803", kWarning, "VaPara para dentro de um bloco"};
inline constexpr Rule kUnreachable{"T0804", kWarning, "Instrução que nunca é alcançada"};
inline constexpr Rule kDeafLoop{"T0805", kWarning, "Laço que não deixa passar os eventos"};
inline constexpr Rule kEndlessLoop{"T0806", kWarning, "Laço que não muda a sua condição"};
inline constexpr Rule kTimer{"T0807", kError, "Temporizador que não dispara"};
inline constexpr Rule kBehindLabel{"T0808", kError, "Instrução atrás de um rótulo"};

// Files and databases.
inline constexpr Rule kNeverOpened{"T0901", kError, "Apelido de arquivo que ninguém abre"};
inline constexpr Rule kNeverClosed{"T0902", kWarning, "Arquivo que ninguém fecha"};
inline constexpr Rule kFileMode{"T0903", kError, "Arquivo aberto em outro modo"};
inline constexpr Rule kDatabaseBlock{"T0904", kError, "Descrição de banco de dados malformada"};
inline constexpr Rule kFieldIsVariable{"T0905", kError, "Campo com o nome de uma variável"};
inline constexpr Rule kFieldTooLong{"T0906", kError, "Texto maior que o campo"};
inline constexpr Rule kUnknownDatabase{"T0907", kError, "Banco de dados ou campo desconhecido"};
inline constexpr Rule kAliasIsVariable{"T0908", kWarning, "Apelido com o nome de uma variável"};

}  // namespace rule

// All of them, in the order of their codes.
std::span<const Rule* const> Rules();

}  // namespace tessera::check
