// The one source of a layer that has no code of its own yet.
