#pragma once

// Shared vocabulary of the platform collections.
struct VYRCollec {
  // What RemoveAll does with the collection's own storage block. A collection
  // of raw pointers or numbers never destroys the items it holds: a void*
  // carries no type to delete it through, so whoever owns the pointed-to
  // objects deletes them before emptying the list.
  //   DoNotFreeMemory: the size drops to 0 and the block is kept for reuse.
  //   FreeMemory:      the size drops to 0 and the block is released.
  enum MemoryHandling { DoNotFreeMemory = 0, FreeMemory = 1 };
};
