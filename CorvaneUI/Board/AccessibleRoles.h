#pragma once

namespace corvane::AccessibleRoles {

/// Tells assistive technology, from now on, what the program's own widgets are: a link is a link, and
/// a plain widget that has an accessible name is a group.
void install();

} // namespace corvane::AccessibleRoles
