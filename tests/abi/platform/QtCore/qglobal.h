// As much of Qt and of the standard library as the headers of the virtual table need, since those of another
// platform are not at hand. Only the types' names matter to the table.
#pragma once
#define Q_DECL_EXPORT
#define Q_DECL_HIDDEN
#define Q_DECL_IMPORT
#define Q_ALWAYS_INLINE inline
