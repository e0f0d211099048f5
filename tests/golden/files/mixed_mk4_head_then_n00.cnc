%
    n` g`   x `    z
   n00 g22
   M
