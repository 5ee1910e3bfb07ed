#include "ui/review/ReviewHelp.h"

namespace tarnlog {

HelpPage ReviewHelp::page() {
  return {
      tr("Keys while looking at a record"),
      {
          {tr("+ and -, wheel"), tr("On a graph: zoom around the readout, or at the pointer")},
          {tr("Ctrl+wheel"), tr("On a graph: scroll the graphs")},
          {tr("Left and Right, drag"), tr("On a graph: move along the time; Home and End go to its ends")},
          {tr("F, Backspace"), tr("On a graph: show all; what was seen before")},
          {tr("A, B, Escape"), tr("On a graph: set the cursors at the readout; take it away, then them")},
          {tr("Ctrl with Left, Right"), tr("On a graph: read out row by row")},
          {tr("Up, Down, Delete"), tr("On a graph: choose a curve, take it away")},
          {tr("Ctrl+drag"), tr("On a graph: move a record that is laid over")},
          {tr("Ctrl+F"), tr("Filter the list of data; Escape shows all")},
          {tr("Enter, Ctrl+Enter"), tr("In the list: into a graph of its unit, into the chosen graph")},
          {tr("Space, Delete"), tr("In the list: show or hide, hide")},
          {tr("Ctrl+G, F3, Shift+F3"), tr("Look for a moment, the next one, the one before")},
          {tr("Ctrl+L, Ctrl+D"), tr("Lay another record over; the difference of the chosen curve")},
          {tr("Ctrl+S"), tr("Save a picture of what is seen")},
          {tr("Ctrl+E"), tr("Save the part between the cursors as CSV; with Shift as measurement file")},
          {tr("Ctrl+Shift+C"), tr("Copy the table of figures")},
          {tr("F6"), tr("To the next part of the window; with Shift to the one before")},
      }};
}

}  // namespace tarnlog
