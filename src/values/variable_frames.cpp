// The variables of running calls, which get records only when somebody else creates or removes a name.
#include <algorithm>

#include "platform/failure.h"
#include "text/one_based.h"
#include "values/variable_store.h"

namespace tessera {

namespace {

bool BeginsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

}  // namespace

void VariableStore::Frame::Add(std::string_view written, VariableType type) {
  variables_.push_back({std::string(written), type, {}});
  variables_.back().row.symbol.isLocal = true;
}

std::string VariableStore::Frame::NameOf(std::size_t i) const {
  return function_ + number_ + variables_[i].written;
}

void VariableStore::Enter(Frame& frame, std::size_t count) {
  for (; frame.entered_ < count; ++frame.entered_) {
    Frame::Variable& variable = frame.variables_[frame.entered_];
    Symbol& symbol = variable.row.symbol;
    WithSlots(variable.type, [&](auto& slots) {
      if (slots.size() >= kMaxSlots) FailMemory();
      symbol.first = static_cast<std::int32_t>(slots.size() - 1);
      slots.emplace_back();
    });
    symbol.type = variable.type;
    if (frame.entered_ == 0) {
      frame.recorded_ = false;
      frames_.push_back(&frame);
      ++unrecorded_;
    } else if (frame.recorded_) {
      RecordVariable(frame, frame.entered_);
    }
  }
}

void VariableStore::RecordVariable(Frame& frame, std::size_t i) {
  Frame::Variable& variable = frame.variables_[i];
  AddRecord(frame.NameOf(i), variable.type, variable.row.symbol.first, 1, &variable.row);
}

void VariableStore::RecordFrames() {
  for (; unrecorded_ > 0; --unrecorded_) {
    Frame& frame = *frames_[frames_.size() - unrecorded_];
    frame.recorded_ = true;
    for (std::size_t i = 0; i < frame.entered_; ++i) RecordVariable(frame, i);
  }
}

void VariableStore::Leave(Frame& frame) {
  if (frame.entered_ == 0) return;
  frames_.pop_back();
  if (frame.recorded_) {
    for (std::size_t i = 0; i < frame.entered_; ++i) VarRemove(frame.NameOf(i), true);
  } else {
    // They are the last ones of their tables, as after removing one by one.
    --unrecorded_;
    for (std::size_t i = frame.entered_; i > 0; --i) {
      Frame::Variable& variable = frame.variables_[i - 1];
      variable.row.symbol.type = Type::None;
      WithSlots(variable.type, [](auto& slots) {
        slots.pop_back();
        slots.back() = {};
      });
    }
  }
  frame.entered_ = 0;
}

void VariableStore::Abandon(Frame& frame) {
  if (frame.entered_ == 0) return;
  RecordFrames();
  frames_.pop_back();
  for (std::size_t i = 0; i < frame.entered_; ++i) {
    Row& row = frame.variables_[i].row;
    if (row.symbol.type == Type::None) continue;
    // The name gets a row of its own, and the frame is free for another call.
    Row& own = AddRow(Upper(frame.NameOf(i)));
    own = {row.symbol, row.index, false};
    own.symbol.isLocal = false;
    Table(row.symbol.type)[row.index].row = &own;
    row.symbol.type = Type::None;
  }
  frame.entered_ = 0;
}

bool VariableStore::IsLocal(std::string_view name) const {
  return std::any_of(frames_.end() - static_cast<std::ptrdiff_t>(unrecorded_), frames_.end(),
                     [&](const Frame* frame) {
                       return name.size() > frame->function_.size() &&
                              Upper(name.front()) == Upper(frame->function_.front()) &&
                              EqualsIgnoringCase(name.substr(0, frame->function_.size()), frame->function_);
                     });
}

// Behind the number a local's name goes on, and nothing else in the program is spelled like that: of such a
// function there is no frame.
std::optional<VariableStore::NumberPlaces> VariableStore::FindNumbers(std::string_view text) const {
  NumberPlaces numbers;
  for (const Frame* frame : frames_) {
    const std::string prefix = frame->function_ + frame->number_;
    for (std::size_t at = text.find(prefix); at != std::string_view::npos; at = text.find(prefix, at + 1)) {
      const std::size_t behind = at + prefix.size();
      if (behind == text.size() || !BeginsName(text[behind])) continue;
      if (numbers.number_ != nullptr && numbers.number_ != &frame->number_) return std::nullopt;
      numbers.number_ = &frame->number_;
      numbers.places_.push_back(at + frame->function_.size());
    }
  }
  return numbers;
}

}  // namespace tessera
