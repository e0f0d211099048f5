%
    N` G`   X `    Z `  F`  H 
    00M30
   "
   N01 G00 X     Z       F    
