// The databases that a program has declared: 21 slots, filled in the order in which descriptors run and never
// freed. A field's value lives in the program variable `<Database>.<Field>`.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/binary_file.h"
#include "recorddb/sorted_list.h"
#include "recorddb/tsa_layout.h"
#include "values/name_form.h"
#include "values/run.h"

namespace tessera {

inline constexpr std::size_t kDatabaseSlots = 21;    // declared
inline constexpr std::int16_t kReachableSlots = 20;  // found by name
inline constexpr std::size_t kOrderedSlots = 11;     // with an order word, which every record command asks
inline constexpr std::size_t kFieldRows = 300;       // of which a descriptor can use this many
inline constexpr std::size_t kIndexFields = 11;

inline constexpr std::string_view kTypeAutoInc = "AutoInc";

struct DatabaseField {
  std::string variable;          // "<Database>.<Field>"
  std::string type;              // "String", "Inteiro", "Decimal", "AutoInc", or a word that is none of them
  std::int16_t width = 0;        // bytes in a record
  std::int16_t position = 1;     // in a record, from 1
  std::optional<NameForm> form;  // of the variable's name; none where each use has to look at the name

  std::string_view Name() const;  // behind the first "."
  // A declared size may be negative; such a field has no slot.
  tsa::Slot Slot() const {
    return {static_cast<Position>(std::max<std::int16_t>(position, 0)),
            static_cast<std::size_t>(std::max<std::int16_t>(width, 0))};
  }
};

struct DatabaseSlot {
  std::string name;
  std::string folder;  // ends in "\"
  std::int16_t recordLength = 0;
  int fileNumber = 0;  // of the open file; 0 while the program has not opened it
  std::vector<DatabaseField> fields;
  std::vector<std::string> indexFields;
};

enum class Order { None, Sequencial, Indice };

// What the record commands work on. One per run; the run outlives it.
struct RecordContext {
  Run& run;
  bool quickOrders = true;  // whether orders may be rebuilt by reading the file in large pieces

  std::array<DatabaseSlot, kDatabaseSlots> DatabaseTable{};
  std::int16_t DatabaseCount = 0;
  std::array<Order, kOrderedSlots> orders{};
  std::array<SortedList, kOrderedSlots> LstOrdem{};
  // Set while a list is rebuilt: positions are then physical. KEPT: a failure in the rebuilding leaves it set
  // (RecordOrder.AFailureWhileRebuildingLeavesPositionsPhysical).
  bool OrderRebuildFlag = false;

  // A slot, its order and its list by number; failure 9 outside the tables.
  DatabaseSlot& Slot(std::int16_t slot);
  Order& OrderOf(std::int16_t slot);
  SortedList& ListOf(std::int16_t slot);
  // The open file of a slot; failure 52 where it is closed. Looked up anew behind everything that lets events
  // run, since these may close it.
  BinaryFile& FileOf(std::int16_t slot);
  // Opens a database's file under a free number.
  void OpenFile(int number, const std::string& path);
  // Closes the file of a slot, where it is open.
  void CloseFile(std::int16_t slot);

  // True when positions given by the program are places in the order list.
  bool PositionsAreOrdered(std::int16_t slot) { return OrderOf(slot) == Order::Indice && !OrderRebuildFlag; }
};

// The lowest slot of that name, blind to case, or -1 behind a message.
std::int16_t FindDatabase(RecordContext& context, std::string_view name);

// The value of a field's variable, and another one for it. Failures of `VarRead` and `VarWrite`.
Value ReadField(VariableStore& variables, const DatabaseField& field);
void WriteField(VariableStore& variables, const DatabaseField& field, Value value);

// The row of a field, blind to case, or -1.
std::int32_t FindField(RecordContext& context, std::string_view name, std::int16_t slot);

// The number of records in the file, deleted ones included. It takes no lock.
std::int32_t RecordCount(RecordContext& context, std::int16_t slot);

}  // namespace tessera
