// The person who writes a script at the windows of its stage.
#pragma once

#include <QEventLoop>
#include <deque>

#include "windows/script_author.h"

namespace tessera {

class QtHost;

class QtAuthor final : public ScriptAuthor {
 public:
  // The host outlives it. A script for a program that never asks where the pointer is needs no line for a
  // pointer on its way.
  QtAuthor(QtHost& host, bool tellsMoves);

  Dialogs& Answers() override;
  std::optional<PersonAct> NextAct(std::optional<Milliseconds> within, std::span<const int> wakes) override;
  void Rest(Milliseconds time) override;

 private:
  void Take(PersonAct act);

  QtHost& host_;
  bool tellsMoves_;
  std::deque<PersonAct> acts_;
};

}  // namespace tessera
