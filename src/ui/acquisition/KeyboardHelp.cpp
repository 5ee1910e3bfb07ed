#include "ui/acquisition/KeyboardHelp.h"

namespace tarnlog {

HelpPage KeyboardHelp::page() {
  return {tr("Keys while acquiring"),
          {
              {tr("Enter"), tr("Start or stop recording")},
              {tr("Space"), tr("Event: write the rows around this moment into a file")},
              {tr("D, G"), tr("Show values as digits, as graphs")},
              {tr("P or Pause"), tr("Freeze the picture and look back; recording goes on")},
              {tr("While paused: F, P"), tr("Show all that is kept; back to now")},
              {tr("Wheel, + and -"), tr("While paused: zoom")},
              {tr("Drag, Shift+arrows"), tr("While paused: move along the time")},
              {tr("A, B"), tr("While paused: set the two cursors")},
              {tr("Arrows, Home, End"), tr("On a graph: read out its points; with Ctrl in wide steps")},
              {tr("Page Up, Page Down"), tr("Scroll the graphs")},
              {tr("Ctrl+F"), tr("Filter the list of values; Escape shows them all and leaves the filter")},
              {tr("Ctrl with +, -, 0"), tr("Larger, smaller, usual letters in the list")},
              {tr("Ctrl+C"), tr("Copy the selected rows of the list, or lines of the log")},
              {tr("Menu, Shift+F10"), tr("What can be done with the list, a graph or the log")},
              {tr("Tab"), tr("Move from control to control")},
              {tr("Alt+C, Alt+L"), tr("Configure, Log")},
              {tr("F11"), tr("Full screen; Escape leaves it")},
          }};
}

}  // namespace tarnlog
