#include "checker/rules.h"

#include <array>

#include "text/one_based.h"

namespace tessera::check {

namespace {

using namespace rule;

constexpr std::array kRules = std::to_array<const Rule*>({
    &kUnknownWord,
    &kBlockSpelling,
    &kUnclosedText,
    &kUnpairedParen,
    &kBracket,
    &kTab,
    &kForeignSign,
    &kCommandParens,
    &kHiddenWord,
    &kTextParen,
    &kUnclosedBlock,
    &kEndWithoutBlock,
    &kCrossedBlocks,
    &kCountedText,
    &kBehindBlockWord,
    &kDeepBlocks,
    &kUndeclared,
    &kOtherType,
    &kHidesCommand,
    &kUnknownType,
    &kBadDeclaration,
    &kNeverRead,
    &kNameEndsInWord,
    &kAccentInSum,
    &kUsedBefore,
    &kConditionParens,
    &kConditionShape,
    &kTextAgainstNumber,
    &kConnective,
    &kBehindCondition,
    &kConnectiveInName,
    &kDecimalComma,
    &kGroupPoints,
    &kSignBehindOperator,
    &kBehindParen,
    &kJoinedElsewhere,
    &kJoinWithoutBlanks,
    &kLostInJoin,
    &kTextInSum,
    &kLostBehindCall,
    &kComputedIndex,
    &kIndexBeyond,
    &kOutsideText,
    &kJoinInText,
    &kExpressionShape,
    &kTextIntoNumber,
    &kNumberSize,
    &kTooFew,
    &kTooMany,
    &kWrongKind,
    &kUnknownKeyword,
    &kUnknownSuffix,
    &kFunctionCase,
    &kFunctionParens,
    &kUnknownFunction,
    &kNoValue,
    &kLostValue,
    &kFormat,
    &kCutAtComma,
    &kUnknownObject,
    &kStateCase,
    &kObjectIsVariable,
    &kWithoutCommand,
    &kUnclosedRoutine,
    &kRoutineHead,
    &kRoutineInTheWay,
    &kFunctionAsCommand,
    &kSubCall,
    &kArgumentCount,
    &kRecursion,
    &kSecondReturn,
    &kNoReturn,
    &kDecimalResult,
    &kParameterName,
    &kParameterInText,
    &kRoutineNames,
    &kHiddenRoutine,
    &kReturnOutside,
    &kNoLabel,
    &kDoubledLabel,
    &kJumpIntoBlock,
    &kUnreachable,
    &kDeafLoop,
    &kEndlessLoop,
    &kTimer,
    &kBehindLabel,
    &kNeverOpened,
    &kNeverClosed,
    &kFileMode,
    &kDatabaseBlock,
    &kFieldIsVariable,
    &kFieldTooLong,
    &kUnknownDatabase,
    &kAliasIsVariable,
});

}  // namespace

std::span<const Rule* const> Rules() {
  return kRules;
}

const Rule* FindRule(std::string_view code) {
  for (const Rule* rule : kRules) {
    if (EqualsIgnoringCase(rule->code, code)) return rule;
  }
  return nullptr;
}

}  // namespace tessera::check
