%
    N` G`  X  `  Y `   Z ` F  
    00M30
   M
   N01 G00 X     Z       F    
