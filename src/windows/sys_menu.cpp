#include "windows/sys_menu.h"

namespace tessera {

std::vector<SysMenuEntry> SysMenuOf(const Form& form) {
  const WindowStyle& style = form.Style();
  if (!style.ControlBox) return {};
  const bool isNormal = form.State() == WindowState::Normal;
  const bool all = !style.AutoSysMenu;
  return {
      {SysMenuAct::Restore, "&Restaurar", !isNormal},
      {SysMenuAct::Move, "&Mover", isNormal},
      {SysMenuAct::Size, "&Tamanho", isNormal && (all || style.Sizable)},
      {SysMenuAct::Minimise, "Mi&nimizar",
       form.State() != WindowState::Minimised && (all || style.MinButton)},
      {SysMenuAct::Maximise, "Ma&ximizar",
       form.State() != WindowState::Maximised && (all || (style.MaxButton && style.Sizable))},
      {SysMenuAct::Close, "&Fechar", true},
  };
}

}  // namespace tessera
