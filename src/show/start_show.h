#pragma once

namespace quorvale {

class ListBox;
class ShowForm;
struct Process;

// Prepares a form for a show from the stored lists: builds both collections, in random order where the options
// say so, takes over the background colour and the transitions' speed, and starts the form's timer, whose first
// tick comes after 500 milliseconds. Fails with kOverflow at an option that does not fit; the timer is then off
// when the background's is the one, and on when it is the speed's.
void InitShow(Process& process, ShowForm& form);

// The same from the lists of two list boxes.
void InitShow(Process& process, ShowForm& form, const ListBox& pictures, const ListBox& sounds);

}  // namespace quorvale
