// The module has no code of its own: it is the driver layer and what that needs.
