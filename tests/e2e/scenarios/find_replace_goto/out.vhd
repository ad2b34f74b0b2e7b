-- Arithmetic and logic unit: eight operations on two 8-bit operands.
-- The flags follow the result of the last clock edge.
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity alu is
	generic (WIDTH : integer := 8);
	port (
		clk    : in  std_logic;
		op     : in  std_logic_vector(2 downto 0);
		a, b   : in  unsigned(WIDTH - 1 downto 0);
		result : out unsigned(WIDTH - 1 downto 0);
		zero   : out std_logic
	);
end entity alu;

architecture rtl of alu is
	signal total : unsigned(WIDTH - 1 downto 0);
	constant NAME : string := "alu -- not a comment";
begin
	process (clk)
	begin
		if rising_edge(clk) then
			case op is
				when "000" => total <= a + b;	-- add
				when "001" => total <= a - b;	-- subtract
				when "010" => total <= a and b;
				when "011" => total <= a or b;
>				when "100" => total <= a xor b;
				when "101" => total <= not a;
				when "110" => total <= shift_left(a, 1);
				when others => total <= (others => '0');
			end case;
		end if;
	end process;

	result <= total;
	zero <= '1' when total = 0 else '0';
end architecture rtl;
