#pragma once

namespace quorvale {

class ListBox;
class ShowForm;
struct Process;

// Starts a show of the stored lists on a form: fills both collections (shuffled if the options say so), reads the
// background colour and the speed of transitions, and starts the form's timer. The first tick comes after 500 ms.
// Fails with kOverflow when an option is out of range: the timer stays off for the colour, but runs for the speed.
void InitShow(Process& process, ShowForm& form);

// The same for the lists in two list boxes.
void InitShow(Process& process, ShowForm& form, const ListBox& pictures, const ListBox& sounds);

}  // namespace quorvale
